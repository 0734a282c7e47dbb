// The median, least and greatest of a sample of timings.
#pragma once

#include <algorithm>
#include <vector>

namespace trickhaven::bench {

struct SampleStats {
    double median = 0;
    double least = 0;
    double greatest = 0;
};

inline SampleStats Summarise(std::vector<double> sample) {
    if (sample.empty()) {
        return {};
    }
    std::sort(sample.begin(), sample.end());
    const std::size_t middle = sample.size() / 2;
    const double median =
        sample.size() % 2 == 1 ? sample[middle] : (sample[middle - 1] + sample[middle]) / 2;
    return {median, sample.front(), sample.back()};
}

}  // namespace trickhaven::bench
