#include <gtest/gtest.h>

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <memory>

#include "forms_test_support.h"

namespace trickhaven {

QWidget* FindControl(QWidget& form, const char* name) {
    // The table's controls lie on its surface, which the window shows scaled;
    // the status bar lies on the window.
    auto* table = qobject_cast<PinochleTable*>(&form);
    QWidget* control = table ? table->Surface()->findChild<QWidget*>(name) : nullptr;
    control = control ? control : form.findChild<QWidget*>(name);
    EXPECT_NE(control, nullptr) << name;
    return control;
}

QPoint WindowSpot(PinochleTable& table, const QWidget& control, QPoint local) {
    QWidget* surface = table.Surface();
    const QPoint onSurface = control.mapTo(surface, local);
    auto* view = table.findChild<QGraphicsView*>();
    const QPointF inScene = surface->graphicsProxyWidget()->mapToScene(QPointF(onSurface));
    return view->viewport()->mapTo(&table, view->mapFromScene(inScene));
}

}  // namespace trickhaven

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Listing the tests needs no screen.
    const std::unique_ptr<QApplication> application(
        GTEST_FLAG_GET(list_tests) ? nullptr : new QApplication(argc, argv));
    return RUN_ALL_TESTS();
}
