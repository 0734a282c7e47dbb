#include <gtest/gtest.h>

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <memory>

#include "forms_test_support.h"

namespace trickhaven {

namespace {

// Made only when the tests run, so that listing them needs no screen.
class QtEnvironment : public ::testing::Environment {
public:
    QtEnvironment(int& argc, char** argv) : argc_(argc), argv_(argv) {}

    void SetUp() override { application = std::make_unique<QApplication>(argc_, argv_); }
    void TearDown() override {
        designTable.reset();
        application.reset();
    }

    std::unique_ptr<QApplication> application;
    std::unique_ptr<PinochleTable> designTable;

private:
    int& argc_;
    char** argv_;
};

QtEnvironment* environment = nullptr;

}  // namespace

PinochleTable& DesignTable() {
    if (!environment->designTable) {
        environment->designTable = std::make_unique<PinochleTable>();
        environment->designTable->show();
    }
    return *environment->designTable;
}

QWidget* FindControl(QWidget& form, const char* name) {
    // The table's controls lie on its surface, which the window shows scaled;
    // the status bar lies on the window.
    auto* table = qobject_cast<PinochleTable*>(&form);
    QWidget* control = table ? table->Surface()->findChild<QWidget*>(name) : nullptr;
    if (!control) {
        control = form.findChild<QWidget*>(name);
    }
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
    trickhaven::environment = new trickhaven::QtEnvironment(argc, argv);
    ::testing::AddGlobalTestEnvironment(trickhaven::environment);
    return RUN_ALL_TESTS();
}
