#include "forms/card_art.h"

#include <QDir>
#include <QFileInfo>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QStandardPaths>
#include <QSvgRenderer>
#include <algorithm>
#include <array>

// The icon lives in the resources of a static library: nothing else would
// bring it into the program.
static void LoadIconResource() {
    Q_INIT_RESOURCE(trickhaven_icons);
}

namespace trickhaven {

namespace {

constexpr QSize kFaceSize{71, 96};
constexpr QSize kBackSize{72, 98};
constexpr QSize kIconSize{32, 32};
constexpr int kBackImage = 49;
constexpr int kFirstSuitIcon = 50;
constexpr int kLastImage = 53;
// A window being resized asks for pictures at each new scale; only the
// sets of the last three ratios are kept, so that they do not pile up.
constexpr std::size_t kKeptRatios = 3;

// Suits in the order of the card table: Diamonds, Clubs, Hearts, Spades.
enum class Suit { Diamonds, Clubs, Hearts, Spades };

// Within a suit the table runs Ace, Ten, King, Queen, Jack, Nine, each twice.
struct Face {
    Suit suit;
    int rank;  // 0 Ace .. 5 Nine
};

Face FaceOfCard(int card) {
    const int zeroBased = card - 1;
    return {static_cast<Suit>(zeroBased / 12), (zeroBased % 12) / 2};
}

bool IsRed(Suit suit) {
    return suit == Suit::Diamonds || suit == Suit::Hearts;
}

QColor SuitColour(Suit suit) {
    return IsRed(suit) ? QColor(204, 0, 0) : QColor(0, 0, 0);
}

// Element names of the desktop's card decks: "club_1", "heart_king", "back".
QString DeckElement(Face face) {
    static const std::array<const char*, 4> suits{"diamond", "club", "heart", "spade"};
    static const std::array<const char*, 6> ranks{"1", "10", "king", "queen", "jack", "9"};
    return QStringLiteral("%1_%2").arg(suits[static_cast<int>(face.suit)], ranks[face.rank]);
}

const QString kBackElement = QStringLiteral("back");

QPixmap BlankPixmap(QSize logical, qreal devicePixelRatio) {
    QPixmap pixmap(logical * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

void Smooth(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::TextAntialiasing);
}

// Suit symbols in a unit square, pointing up; scaled to wherever they go.
QPainterPath HeartShape() {
    QPainterPath left;
    QPainterPath right;
    QPainterPath point;
    left.addEllipse(QRectF(0.0, 0.05, 0.54, 0.52));
    right.addEllipse(QRectF(0.46, 0.05, 0.54, 0.52));
    point.addPolygon(QPolygonF{{0.04, 0.42}, {0.5, 0.98}, {0.96, 0.42}, {0.5, 0.3}});
    point.closeSubpath();
    return left.united(right).united(point);
}

QPainterPath SuitShape(Suit suit) {
    QPainterPath path;
    switch (suit) {
        case Suit::Diamonds:
            path.addPolygon(QPolygonF{{0.5, 0.0}, {0.88, 0.5}, {0.5, 1.0}, {0.12, 0.5}});
            path.closeSubpath();
            return path;
        case Suit::Hearts:
            return HeartShape();
        case Suit::Spades: {
            QTransform upsideDown;
            upsideDown.translate(0.0, 0.78).scale(1.0, -0.78);
            QPainterPath stem;
            stem.addPolygon(QPolygonF{{0.5, 0.55}, {0.3, 1.0}, {0.7, 1.0}});
            stem.closeSubpath();
            return upsideDown.map(HeartShape()).united(stem);
        }
        case Suit::Clubs: {
            QPainterPath top;
            QPainterPath left;
            QPainterPath right;
            QPainterPath stem;
            top.addEllipse(QPointF(0.5, 0.27), 0.23, 0.23);
            left.addEllipse(QPointF(0.26, 0.6), 0.23, 0.23);
            right.addEllipse(QPointF(0.74, 0.6), 0.23, 0.23);
            stem.addPolygon(QPolygonF{{0.5, 0.45}, {0.32, 1.0}, {0.68, 1.0}});
            stem.closeSubpath();
            return top.united(left).united(right).united(stem);
        }
    }
    return path;
}

void DrawSuit(QPainter& painter, Suit suit, const QRectF& box, bool upsideDown = false) {
    QTransform place;
    place.translate(box.x(), box.y()).scale(box.width(), box.height());
    if (upsideDown) {
        place.translate(0.5, 0.5).rotate(180).translate(-0.5, -0.5);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(SuitColour(suit));
    painter.drawPath(place.map(SuitShape(suit)));
}

void DrawCardBlank(QPainter& painter, QSizeF size, const QColor& fill) {
    painter.setPen(QPen(QColor(60, 60, 60), 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(QPointF(0.5, 0.5), size - QSizeF(1, 1)), 5, 5);
}

// The rank and a small pip in the top left corner; the painter is turned
// round for the bottom right one.
void DrawCorner(QPainter& painter, Face face) {
    static const std::array<const char*, 6> labels{"A", "10", "K", "Q", "J", "9"};
    QFont font(QStringLiteral("Liberation Sans"));
    font.setBold(true);
    font.setPixelSize(15);
    font.setLetterSpacing(QFont::PercentageSpacing, face.rank == 1 ? 85 : 100);
    painter.setFont(font);
    painter.setPen(SuitColour(face.suit));
    painter.drawText(QRectF(2, 2, 17, 16), Qt::AlignCenter, QString::fromLatin1(labels[face.rank]));
    DrawSuit(painter, face.suit, QRectF(5, 18, 11, 11));
}

// Pip positions of a Nine and a Ten, as fractions of the pip field.
constexpr std::array<QPointF, 8> kSidePips{{{0.0, 0.0},
                                            {0.0, 1.0 / 3},
                                            {0.0, 2.0 / 3},
                                            {0.0, 1.0},
                                            {1.0, 0.0},
                                            {1.0, 1.0 / 3},
                                            {1.0, 2.0 / 3},
                                            {1.0, 1.0}}};

void DrawPips(QPainter& painter, Face face) {
    const QRectF field(25, 13, 21, 60);
    const qreal pip = 11;
    auto drawAt = [&](QPointF at) {
        const QPointF centre(field.x() + at.x() * field.width(),
                             field.y() + at.y() * field.height() + pip / 2);
        DrawSuit(painter, face.suit, QRectF(centre - QPointF(pip / 2, pip / 2), QSizeF(pip, pip)),
                 at.y() > 0.5);
    };
    for (QPointF at : kSidePips) {
        drawAt(at);
    }
    if (face.rank == 1) {
        drawAt({0.5, 1.0 / 6});
        drawAt({0.5, 5.0 / 6});
    } else {
        drawAt({0.5, 0.5});
    }
}

// Kings, Queens and Jacks: a framed panel with the letter and the suit.
void DrawCourt(QPainter& painter, Face face) {
    static const std::array<const char*, 3> letters{"K", "Q", "J"};
    const QRectF panel(17, 12, 37, 72);
    painter.setPen(QPen(SuitColour(face.suit), 1));
    painter.setBrush(IsRed(face.suit) ? QColor(255, 236, 200) : QColor(220, 232, 255));
    painter.drawRect(panel);
    QFont font(QStringLiteral("Liberation Serif"));
    font.setBold(true);
    font.setPixelSize(30);
    painter.setFont(font);
    painter.setPen(SuitColour(face.suit));
    painter.drawText(QRectF(panel.x(), panel.y() + 2, panel.width(), 34), Qt::AlignCenter,
                     QString::fromLatin1(letters[face.rank - 2]));
    DrawSuit(painter, face.suit, QRectF(24.5, 48, 22, 22));
}

QPixmap DrawnFace(Face face, qreal devicePixelRatio) {
    QPixmap pixmap = BlankPixmap(kFaceSize, devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    DrawCardBlank(painter, kFaceSize, Qt::white);
    DrawCorner(painter, face);
    painter.save();
    painter.translate(kFaceSize.width(), kFaceSize.height());
    painter.rotate(180);
    DrawCorner(painter, face);
    painter.restore();
    if (face.rank == 0) {
        DrawSuit(painter, face.suit, QRectF(18, 31, 35, 35));
    } else if (face.rank == 1 || face.rank == 5) {
        DrawPips(painter, face);
    } else {
        DrawCourt(painter, face);
    }
    return pixmap;
}

QPixmap DrawnBack(qreal devicePixelRatio) {
    QPixmap pixmap = BlankPixmap(kBackSize, devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    DrawCardBlank(painter, kBackSize, Qt::white);
    const QRectF inner(5, 5, kBackSize.width() - 10, kBackSize.height() - 10);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(150, 20, 40));
    painter.drawRoundedRect(inner, 3, 3);
    painter.setBrush(QBrush(QColor(230, 140, 150), Qt::DiagCrossPattern));
    painter.drawRoundedRect(inner, 3, 3);
    return pixmap;
}

QPixmap SuitIcon(Suit suit, qreal devicePixelRatio) {
    QPixmap pixmap = BlankPixmap(kIconSize, devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    DrawSuit(painter, suit, QRectF(3, 2, 26, 28));
    return pixmap;
}

// The program's icon: a fan of three cards, the front one a spade.
QPixmap RenderedProgramIcon(int side, qreal devicePixelRatio) {
    LoadIconResource();
    QSvgRenderer icon(QStringLiteral(":/icons/org.trickhaven.Trickhaven.svg"));
    QPixmap pixmap = BlankPixmap(QSize(side, side), devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    icon.render(&painter, QRectF(0, 0, side, side));
    return pixmap;
}

QPixmap Badge(const QColor& colour, const QString& symbol, qreal devicePixelRatio) {
    QPixmap pixmap = BlankPixmap(kIconSize, devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    QRadialGradient shine(QPointF(12, 10), 20);
    shine.setColorAt(0, colour.lighter(160));
    shine.setColorAt(1, colour);
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(shine);
    painter.drawEllipse(QRectF(2, 2, 28, 28));
    QFont font(QStringLiteral("Liberation Serif"));
    font.setBold(true);
    font.setPixelSize(24);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(2, 2, 28, 28), Qt::AlignCenter, symbol);
    return pixmap;
}

QStringList SystemDeckFolders() {
    return QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                     QStringLiteral("aisleriot/cards"),
                                     QStandardPaths::LocateDirectory);
}

// Decks whose indices stay legible at the size of the table's cards come
// first; any other deck of the folder will do after them.
QStringList DeckCandidates(const QString& folder) {
    static const std::array<const char*, 4> preferred{"tango", "plastic", "anglo", "paris"};
    const QDir dir(folder);
    QStringList candidates;
    for (const char* name : preferred) {
        for (const char* suffix : {".svgz", ".svg"}) {
            const QString file = dir.filePath(QString::fromLatin1(name) + suffix);
            if (QFileInfo::exists(file)) {
                candidates << file;
            }
        }
    }
    const QStringList others =
        dir.entryList({QStringLiteral("*.svgz"), QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
    for (const QString& name : others) {
        const QString file = dir.filePath(name);
        if (!candidates.contains(file)) {
            candidates << file;
        }
    }
    return candidates;
}

bool HasEveryCard(const QSvgRenderer& deck) {
    if (!deck.isValid() || !deck.elementExists(kBackElement)) {
        return false;
    }
    for (int card = 1; card <= 48; card += 2) {
        if (!deck.elementExists(DeckElement(FaceOfCard(card)))) {
            return false;
        }
    }
    return true;
}

}  // namespace

CardArt::CardArt() : deckFolders_(SystemDeckFolders()) {}

CardArt::CardArt(const QString& deckFolder) : deckFolders_{deckFolder} {}

CardArt::~CardArt() = default;

QSvgRenderer* CardArt::Deck() {
    if (!deckSearched_) {
        deckSearched_ = true;
        for (const QString& folder : deckFolders_) {
            for (const QString& file : DeckCandidates(folder)) {
                auto deck = std::make_unique<QSvgRenderer>(file);
                if (HasEveryCard(*deck)) {
                    deck_ = std::move(deck);
                    return deck_.get();
                }
            }
        }
    }
    return deck_.get();
}

bool CardArt::UsesInstalledDeck() {
    return Deck() != nullptr;
}

QPixmap CardArt::Image(int index, qreal devicePixelRatio) {
    if (index < 1 || index > kLastImage) {
        return {};
    }
    auto set = std::find_if(cache_.begin(), cache_.end(), [devicePixelRatio](const auto& kept) {
        return kept.first == devicePixelRatio;
    });
    if (set == cache_.end()) {
        if (cache_.size() == kKeptRatios) {
            cache_.erase(cache_.begin());
        }
        cache_.emplace_back(devicePixelRatio, std::map<int, QPixmap>{});
    } else {
        std::rotate(set, std::next(set), cache_.end());
    }
    std::map<int, QPixmap>& pictures = cache_.back().second;
    if (const auto found = pictures.find(index); found != pictures.end()) {
        return found->second;
    }
    QPixmap picture = Render(index, devicePixelRatio);
    pictures.emplace(index, picture);
    return picture;
}

QSize CardArt::ImageSize(int index) {
    if (index >= kFirstSuitIcon) {
        return kIconSize;
    }
    return index == kBackImage ? kBackSize : kFaceSize;
}

QPixmap CardArt::Render(int index, qreal devicePixelRatio) {
    if (index >= kFirstSuitIcon) {
        return SuitIcon(static_cast<Suit>(index - kFirstSuitIcon), devicePixelRatio);
    }
    QSvgRenderer* deck = Deck();
    const bool back = index == kBackImage;
    if (deck == nullptr) {
        return back ? DrawnBack(devicePixelRatio) : DrawnFace(FaceOfCard(index), devicePixelRatio);
    }
    const QSize size = back ? kBackSize : kFaceSize;
    QPixmap pixmap = BlankPixmap(size, devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    deck->render(&painter, back ? kBackElement : DeckElement(FaceOfCard(index)),
                 QRectF(QPointF(0, 0), size));
    return pixmap;
}

QIcon CardArt::ProgramIcon() {
    QIcon icon;
    for (int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(RenderedProgramIcon(side, 1.0));
    }
    return icon;
}

QPixmap CardArt::MessageIcon(int index, qreal devicePixelRatio) {
    switch (index) {
        case 2:
            return Badge(QColor(0, 70, 190), QStringLiteral("?"), devicePixelRatio);
        case 3:
            return Badge(QColor(0, 130, 110), QStringLiteral("i"), devicePixelRatio);
        default:
            return RenderedProgramIcon(kIconSize.width(), devicePixelRatio);
    }
}

QPixmap CardArt::TrumpPanelPicture(qreal devicePixelRatio) {
    QPixmap pixmap = BlankPixmap(kIconSize, devicePixelRatio);
    QPainter painter(&pixmap);
    Smooth(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(210, 0, 0));
    painter.drawEllipse(QRectF(2, 2, 28, 28));
    painter.setBrush(Qt::white);
    painter.drawRect(QRectF(7, 13, 18, 6));
    return pixmap;
}

}  // namespace trickhaven
