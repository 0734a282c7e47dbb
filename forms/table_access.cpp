#include "forms/table_access.h"

#include <QAccessibleWidget>

#include "forms/card_picture.h"
#include "forms/table_widgets.h"
#include "game/game_state.h"
#include "round_one/card_click.h"

namespace trickhaven {

namespace {

const QString kCannotPlay = QStringLiteral("cannot be played now");

// A card of the player's hand is a button to press; any other card is a
// picture to read.
class CardAccessible : public QAccessibleWidget {
public:
    explicit CardAccessible(CardPicture* card) : QAccessibleWidget(card) {}

    QAccessible::Role role() const override {
        return Standing().playersCard ? QAccessible::PushButton : QAccessible::Graphic;
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Description) {
            return Standing().CannotPlay() ? kCannotPlay : QString();
        }
        return QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (Standing().playersCard) names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& action) override {
        if (action != pressAction()) {
            QAccessibleWidget::doAction(action);
        } else if (Standing().playersCard) {
            Card()->Press();
        }
    }

private:
    CardPicture* Card() const { return static_cast<CardPicture*>(widget()); }
    CardStanding Standing() const { return Card()->Standing(); }
};

class NoticeAccessible : public QAccessibleWidget {
public:
    explicit NoticeAccessible(QWidget* notice)
        : QAccessibleWidget(notice, QAccessible::Notification) {}
};

// A panel of the table reads as a panel named by the caption in its border.
class PanelAccessible : public QAccessibleWidget {
public:
    explicit PanelAccessible(TablePanel* panel) : QAccessibleWidget(panel, QAccessible::Grouping) {}

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return static_cast<TablePanel*>(widget())->Title();
        return QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* TableAccessible(const QString&, QObject* object) {
    if (auto* panel = qobject_cast<TablePanel*>(object)) {
        return new PanelAccessible(panel);
    }
    if (auto* card = qobject_cast<CardPicture*>(object)) {
        return new CardAccessible(card);
    }
    if (auto* notice = qobject_cast<SpokenNotice*>(object)) {
        return new NoticeAccessible(notice);
    }
    return nullptr;
}

}  // namespace

CardStanding ReadCard(const Game& g, int card) {
    const CardRec& rec = Card(g, card);
    return {rec.Place == PlacePlayerHand, ClickWouldPlay(g, card), CardAwaited(g)};
}

SpokenNotice::SpokenNotice(QWidget* parent) : QWidget(parent) {
    setObjectName("SpokenNotice");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    resize(1, 1);
    hide();
}

void SpokenNotice::Say(const QString& text) {
    // Screen readers speak a notification as it comes into view; the same
    // widget is hidden and shown again for each text.
    hide();
    setAccessibleName(text);
    show();
}

void InstallTableAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(TableAccessible);
        return true;
    }();
    (void)installed;
}

}  // namespace trickhaven
