#include "forms/menu_access.h"

#include <QAccessible>
#include <QAction>
#include <QMenu>
#include <QPointer>

namespace trickhaven {

namespace {

// An entry of a drop-down that bears a check mark. The toolkit's own entry
// lets a screen reader say "checked" of the entry that is, and nothing of
// the others; this one tells "not checked" in its description, which a
// screen reader speaks after the name.
class CheckEntryAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    explicit CheckEntryAccessible(QAction* action) : action_(action) {}

    bool isValid() const override { return action_ != nullptr && Menu() != nullptr; }
    QObject* object() const override { return action_; }
    QWindow* window() const override { return Menu()->windowHandle(); }

    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(Menu());
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return QString(action_->text()).remove(QLatin1Char('&'));
        if (kind == QAccessible::Accelerator) return action_->shortcut().toString();
        if (kind == QAccessible::Description && !action_->isChecked()) {
            return QStringLiteral("not checked");
        }
        return {};
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        const QRect entry = Menu()->actionGeometry(action_);
        return QRect(Menu()->mapToGlobal(entry.topLeft()), entry.size());
    }
    QAccessible::Role role() const override { return QAccessible::MenuItem; }
    QAccessible::State state() const override {
        QAccessible::State state;
        const QMenu* menu = Menu();
        state.focusable = true;
        state.focused = menu->isVisible() && menu->activeAction() == action_;
        state.invisible = !menu->isVisible() || !action_->isVisible();
        state.disabled = !action_->isEnabled();
        state.checkable = true;
        state.checked = action_->isChecked();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType kind) override {
        return kind == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction(), toggleAction()}; }
    void doAction(const QString&) override { action_->trigger(); }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QMenu* Menu() const { return qobject_cast<QMenu*>(action_->parent()); }

    QPointer<QAction> action_;
};

QAccessibleInterface* MenuAccessible(const QString&, QObject* object) {
    auto* action = qobject_cast<QAction*>(object);
    if (action != nullptr && action->isCheckable() && qobject_cast<QMenu*>(action->parent())) {
        return new CheckEntryAccessible(action);
    }
    return nullptr;
}

}  // namespace

void InstallMenuAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(MenuAccessible);
        return true;
    }();
    (void)installed;
}

}  // namespace trickhaven
