// What the exact search of Round Two costs: it solves seeded random deals
// of twelve cards against twelve, each on an empty table of positions, and
// prints the processor time per solve, per best card, per valuing of every
// card and per card of the whole hand played out by best cards (the
// machine's other work does not count), the steps searched, and a signature
// of the answers.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <numeric>
#include <random>
#include <vector>

#include "expert/round_two_search.h"

namespace {

using trickhaven::expert::CardBit;
using trickhaven::expert::RoundTwoPosition;
using trickhaven::expert::RoundTwoSearch;

struct Timing {
    std::vector<double> ms;
    std::int64_t nodes = 0;

    void Print(const char* what) {
        std::sort(ms.begin(), ms.end());
        const auto at = [this](double share) {
            return ms[std::min(ms.size() - 1, static_cast<std::size_t>(share * ms.size()))];
        };
        std::printf("%-16s median %.3f ms  p99 %.3f ms  worst %.3f ms  nodes %.0f per call\n", what,
                    at(0.5), at(0.99), ms.back(),
                    static_cast<double>(nodes) / static_cast<double>(ms.size()));
    }
};

// Times one call, on the table as it stands.
template <typename Call>
void Measure(RoundTwoSearch& search, Timing& timing, Call call) {
    const std::int64_t nodes = search.Nodes();
    const std::clock_t start = std::clock();
    call();
    timing.ms.push_back(1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    timing.nodes += search.Nodes() - nodes;
}

// A whole pack dealt twelve and twelve, the other cards played in Round One.
RoundTwoPosition RandomDeal(std::mt19937_64& random) {
    std::vector<int> pack(trickhaven::CardCount);
    std::iota(pack.begin(), pack.end(), 1);
    for (std::size_t i = pack.size() - 1; i > 0; --i) std::swap(pack[i], pack[random() % (i + 1)]);
    RoundTwoPosition position;
    for (int i = 0; i < 24; ++i) position.hands[i % 2] |= CardBit(pack[i]);
    position.trumpSuit = static_cast<int>(random() % 4) + trickhaven::Diamonds;
    position.toMove = static_cast<int>(random() % 2);
    return position;
}

// The hand played out by best cards, the table kept from one card to the
// next as a robot keeps it through Round Two. Returns the points of side 0.
int PlayOut(RoundTwoSearch& search, Timing& timing, RoundTwoPosition position) {
    int points = 0;
    while (position.hands[position.toMove] != 0) {
        int card = 0;
        Measure(search, timing, [&] { card = search.BestCard(position); });
        position.hands[position.toMove] &= ~CardBit(card);
        if (position.ledCard == 0) {
            position.ledCard = card;
            position.toMove = 1 - position.toMove;
            continue;
        }
        const int taker =
            trickhaven::expert::FollowerTakesTrick(position.ledCard, card, position.trumpSuit)
                ? position.toMove
                : 1 - position.toMove;
        if (taker == 0) {
            points += trickhaven::expert::CardPointsOf(position.ledCard) +
                      trickhaven::expert::CardPointsOf(card);
        }
        position.ledCard = 0;
        position.toMove = taker;
    }
    return points;
}

}  // namespace

int main(int argc, char** argv) {
    int deals = 1000;
    std::uint64_t seed = 1;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--deals") == 0) deals = std::atoi(argv[i + 1]);
        if (std::strcmp(argv[i], "--seed") == 0) seed = std::strtoull(argv[i + 1], nullptr, 10);
    }
    if (deals < 1) {
        std::fprintf(stderr, "usage: expert_bench [--deals N] [--seed S]\n");
        return 2;
    }
    std::mt19937_64 random(seed);
    RoundTwoSearch search;
    Timing solve, best, every, play;
    std::int64_t valueSum = 0, bestSum = 0, everySum = 0, playSum = 0;
    for (int deal = 0; deal < deals; ++deal) {
        const RoundTwoPosition position = RandomDeal(random);
        // Each call of the first three starts on an empty table.
        search.Clear();
        Measure(search, solve, [&] { valueSum += search.Value(position); });
        search.Clear();
        Measure(search, best, [&] { bestSum += search.BestCard(position); });
        search.Clear();
        Measure(search, every, [&] {
            const auto values = search.ValuesOfCards(position);
            everySum += std::accumulate(values.points.begin(), values.points.end(), 0);
        });
        search.Clear();
        playSum += PlayOut(search, play, position);
    }
    std::printf("%d deals of 12 against 12, seed %llu\n", deals,
                static_cast<unsigned long long>(seed));
    solve.Print("value");
    best.Print("best card");
    every.Print("every card");
    play.Print("card in play");
    std::printf("signature: values %lld, best cards %lld, every card %lld, played out %lld\n",
                static_cast<long long>(valueSum), static_cast<long long>(bestSum),
                static_cast<long long>(everySum), static_cast<long long>(playSum));
    return 0;
}
