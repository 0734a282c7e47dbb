// What the widget tests share: a control by its name, a point of it as the
// window shows it, and a recorder of the events a table hands to the logic.
#pragma once

#include <QWidget>
#include <vector>

#include "forms/pinochle_table.h"

namespace trickhaven {

// A control of a form by its design name; fails the test when missing.
QWidget* FindControl(QWidget& form, const char* name);

// Where a point of a control on the table lies in the table's window, through
// the scaling of the table; for clicks as the screen delivers them.
QPoint WindowSpot(PinochleTable& table, const QWidget& control, QPoint local);

// Collects what a table sends.
struct EventLog {
    std::vector<TableEvent> events;

    void Listen(PinochleTable& table) {
        table.SetEventHandler([this](const TableEvent& event) { events.push_back(event); });
    }
};

inline bool operator==(const TableEvent& a, const TableEvent& b) {
    return a.kind == b.kind && a.index == b.index;
}

}  // namespace trickhaven
