// What the widget tests share: a control by its name, a point of it as the
// window shows it, and a recorder of the events a table hands to the logic.
#pragma once

#include <gtest/gtest.h>

#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <QWidget>
#include <vector>

#include "forms/pinochle_table.h"

namespace trickhaven {

// A control of a form by its design name; fails the test when missing. The
// table's controls lie on its surface, which the window shows scaled; the
// status bar lies on the window.
inline QWidget* FindControl(QWidget& form, const char* name) {
    auto* table = qobject_cast<PinochleTable*>(&form);
    QWidget* control = table ? table->Surface()->findChild<QWidget*>(name) : nullptr;
    control = control ? control : form.findChild<QWidget*>(name);
    EXPECT_NE(control, nullptr) << name;
    return control;
}

// Where a point of a control on the table lies in the table's window, through
// the scaling of the table; for clicks as the screen delivers them.
inline QPoint WindowSpot(PinochleTable& table, const QWidget& control, QPoint local) {
    QWidget* surface = table.Surface();
    const QPointF inScene =
        surface->graphicsProxyWidget()->mapToScene(QPointF(control.mapTo(surface, local)));
    auto* view = table.findChild<QGraphicsView*>();
    return view->viewport()->mapTo(&table, view->mapFromScene(inScene));
}

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
