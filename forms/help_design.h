// The design of the three rules pages: size, print size, buttons, the small
// card pictures and their captions. Positions and sizes are twips.
#pragma once

#include <vector>

namespace trickhaven {

struct HelpButtonDesign {
    const char* name;
    int left, top, width, height;
    // 0: the page's own print size.
    double points;
    const char* caption;
    const char* toolTip;
    // The page to show after this one hides; 0 for none.
    int nextPage;
};

struct HelpPictureDesign {
    const char* name;
    int left, top;
    // An index of the card table: the face shown.
    int card;
};

struct HelpLabelDesign {
    const char* name;
    int left, top, width, height;
    const char* caption;
};

struct HelpPageDesign {
    const char* name;
    const char* title;
    int width, height;
    double points;
    // The page prints once onto a surface that it keeps, instead of at
    // every repaint.
    bool keepsPrint;
    std::vector<HelpButtonDesign> buttons;
    // In stacking order: a later picture lies on top of an earlier one.
    std::vector<HelpPictureDesign> pictures;
    std::vector<HelpLabelDesign> labels;
};

inline constexpr int HelpPictureSize = 825;
inline constexpr double HelpLabelPoints = 11.25;

// Page 1, 2 or 3.
const HelpPageDesign& HelpDesign(int page);

}  // namespace trickhaven
