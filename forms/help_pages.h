// The three rules pages and their owner. A page prints its text line by line
// on its own background, with small card pictures in the gaps; its buttons
// are the only way to close it, and lead from page to page.
#pragma once

#include <QAbstractButton>
#include <QPixmap>
#include <QStringList>
#include <QWidget>
#include <array>
#include <memory>

#include "forms/card_art.h"

namespace trickhaven {

struct HelpPageDesign;

class HelpPage : public QWidget {
    Q_OBJECT
public:
    const QStringList& Lines() const { return lines_; }
    int LineHeight() const;
    // How many lines have been printed since the page loaded, and where the
    // print position stands after the last line printed.
    int LinesPrinted() const { return linesPrinted_; }
    int PrintPositionY() const { return printY_; }
    // All that the page says in words, for a screen reader: its lines, then
    // the captions beside its pictures.
    QString Words() const;

signals:
    // A button has hidden this page and wants that page shown.
    void pageRequested(int page);

protected:
    HelpPage(int page, CardArt& art);
    void paintEvent(QPaintEvent* event) override;
    // Escape leaves as the page's exit button does; Enter presses the
    // focused button, as Space does.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddButtons(const HelpPageDesign& design);
    void AddPictures(const HelpPageDesign& design, CardArt& art);
    void AddLabels(const HelpPageDesign& design);
    void Print(QPainter& painter);

    QStringList lines_;
    QStringList captions_;
    QAbstractButton* exit_ = nullptr;
    bool keepsPrint_;
    QPixmap keptPrint_;
    int linesPrinted_ = 0;
    int printY_ = 0;
};

class FrmHelp : public HelpPage {
    Q_OBJECT
public:
    explicit FrmHelp(CardArt& art) : HelpPage(1, art) {}
};

class FrmHelp2 : public HelpPage {
    Q_OBJECT
public:
    explicit FrmHelp2(CardArt& art) : HelpPage(2, art) {}
};

class FrmHelp3 : public HelpPage {
    Q_OBJECT
public:
    explicit FrmHelp3(CardArt& art) : HelpPage(3, art) {}
};

// Owns the pages. Each loads the first time it is shown, centred on the
// screen, and from then on is only hidden and shown again where it stood.
class HelpPages {
public:
    HelpPages();
    ~HelpPages();

    // F1: page 1, whatever other page is up.
    void ShowFirstPage() { Show(1); }
    void Show(int page);
    // The page if it has loaded, else null.
    HelpPage* Page(int page) const;

private:
    CardArt art_;
    std::array<std::unique_ptr<HelpPage>, 3> pages_;
};

}  // namespace trickhaven
