// ImageList1 of the table: the 48 card faces, the back and the four suit
// icons, rendered once per device pixel ratio and kept for the few ratios
// last asked for. Faces come from an installed SVG deck of the desktop's card
// games; where none is installed they are drawn in code.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QStringList>
#include <map>
#include <memory>
#include <vector>

class QSvgRenderer;

namespace trickhaven {

class CardArt {
public:
    // Looks for a deck among the card games' decks of the desktop.
    CardArt();
    // Looks for a deck in this folder only.
    explicit CardArt(const QString& deckFolder);
    ~CardArt();

    // Image index: 1..48 the face of card i, 49 the back, 50..53 the suit
    // icons (Diamonds, Clubs, Hearts, Spades). Faces are 71 by 96 pixels,
    // the back 72 by 98, icons 32 by 32, all at the given ratio.
    QPixmap Image(int index, qreal devicePixelRatio);
    // The size of an image in logical pixels, whatever the ratio.
    static QSize ImageSize(int index);

    // The program's own icon, for the window, the message box and About:
    // the same picture as the icon installed for the desktop's menus.
    static QIcon ProgramIcon();
    // Icons 2 and 3 of the message box: a question badge, an "i" badge; 1 is
    // the program's icon. 32 by 32.
    static QPixmap MessageIcon(int index, qreal devicePixelRatio);
    // The design picture of status bar panel 1: a red disc with a white bar.
    static QPixmap TrumpPanelPicture(qreal devicePixelRatio);

    // True when the faces come from an installed SVG deck.
    bool UsesInstalledDeck();

private:
    // The installed deck, searched for at the first need; null without one.
    QSvgRenderer* Deck();
    QPixmap Render(int index, qreal devicePixelRatio);

    QStringList deckFolders_;
    bool deckSearched_ = false;
    std::unique_ptr<QSvgRenderer> deck_;
    // Pictures by ratio, then by index; the ratio used last comes last.
    std::vector<std::pair<qreal, std::map<int, QPixmap>>> cache_;
};

}  // namespace trickhaven
