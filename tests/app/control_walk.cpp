#include "control_walk.h"

#include <controls/alarm_lamp.h>
#include <controls/row_label.h>
#include <controls/strip_chart.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tqx::test {
namespace {

std::string Describe(const QWidget* widget) {
    return widget == nullptr ? "nothing"
                             : widget->objectName().toStdString() + " (" +
                                   widget->metaObject()->className() + ")";
}

/// A piece that Qt makes inside one of its controls: the scroll keys of a tab bar, a scroll bar,
/// the viewport and the corner of a scroll area, the list behind a combo box.
bool IsPartOfControl(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return widget.objectName().startsWith("qt_") || qobject_cast<const QScrollBar*>(&widget) ||
           qobject_cast<const QTabBar*>(parent) || qobject_cast<const QComboBox*>(parent) ||
           widget.window()->windowType() == Qt::Popup;
}

/// A scroll area takes the focus only to scroll, and a text only so that it can be copied.
bool IsForReadingOnly(const QWidget& widget) {
    return qobject_cast<const QScrollArea*>(&widget) != nullptr ||
           widget.metaObject() == &QLabel::staticMetaObject;
}

/// A control that hands the focus to a part of its own takes none itself.
bool TakesTheHand(const QWidget& widget) {
    if (widget.focusProxy() != nullptr) {
        return false;
    }
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const AlarmLamp*>(&widget);
}

/// A tool tip or a pane is no kind of control.
bool IsRoleOfControl(QAccessible::Role role) {
    static const std::set<int> none{QAccessible::NoRole,   QAccessible::Client,
                                    QAccessible::Window,   QAccessible::Pane,
                                    QAccessible::Grouping, QAccessible::StaticText};
    return none.count(role) == 0;
}

/// Every key sequence of the window that works now, and what it starts.
std::multimap<std::string, std::string> Shortcuts(const QWidget& window) {
    std::multimap<std::string, std::string> found;
    std::set<const QAction*> actions;
    for (const auto* widget : window.findChildren<const QWidget*>()) {
        if (!widget->isVisible()) {
            continue;
        }
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget);
            button && !button->shortcut().isEmpty() && !qobject_cast<const QToolButton*>(button)) {
            found.emplace(button->shortcut().toString().toStdString(), Describe(button));
        }
        if (const auto* label = qobject_cast<const QLabel*>(widget); label && label->buddy()) {
            const QKeySequence key = QKeySequence::mnemonic(label->text());
            if (!key.isEmpty()) {
                found.emplace(key.toString().toStdString(), Describe(label));
            }
        }
        for (const QAction* action : widget->actions()) {
            actions.insert(action);
        }
    }
    for (const QAction* action : actions) {
        for (const QKeySequence& key : action->shortcuts()) {
            found.emplace(key.toString().toStdString(), action->objectName().toStdString());
        }
    }
    return found;
}

/// Controls that Tab does not come to one by one: of a group of which one is chosen it comes to one
/// and the arrows lead on; what a lamp does, the row beside it does too; and the keys on a chart's
/// paper are keys of the chart.
bool HasAnotherWay(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return (button && (button->autoExclusive() || button->group())) ||
           qobject_cast<const AlarmLamp*>(&widget) ||
           qobject_cast<const StripChart*>(widget.parentWidget());
}

/// Adds the rows that the arrows lead to from those that have been reached.
void FollowArrows(std::set<QWidget*>& reached) {
    std::vector<QWidget*> open(reached.begin(), reached.end());
    while (!open.empty()) {
        QWidget* const from = open.back();
        open.pop_back();
        if (!qobject_cast<RowLabel*>(from)) {
            continue;
        }
        for (const Qt::Key arrow : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) {
            from->setFocus();
            QTest::keyClick(from, arrow);
            QWidget* const to = QApplication::focusWidget();
            if (reached.insert(to).second) {
                open.push_back(to);
            }
        }
    }
}

} // namespace

QList<QWidget*> ControlsOnView(const QWidget& window) {
    QList<QWidget*> controls;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && widget->window() == &window && TakesTheHand(*widget) &&
            !IsPartOfControl(*widget) && !IsForReadingOnly(*widget)) {
            controls << widget;
        }
    }
    return controls;
}

void ExpectNamesAndRoles(const QWidget& window) {
    for (QWidget* control : ControlsOnView(window)) {
        const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(face, nullptr) << Describe(control);
        EXPECT_FALSE(face->text(QAccessible::Name).trimmed().isEmpty())
            << Describe(control) << " has no name";
        EXPECT_TRUE(IsRoleOfControl(face->role()))
            << Describe(control) << " has the role " << face->role();
    }
}

void ExpectNoShortcutTwice(const QWidget& window) {
    const auto shortcuts = Shortcuts(window);
    for (auto it = shortcuts.begin(); it != shortcuts.end();) {
        const auto end = shortcuts.upper_bound(it->first);
        EXPECT_EQ(std::distance(it, end), 1)
            << it->first << " starts " << it->second << " and " << std::prev(end)->second;
        it = end;
    }
}

void ExpectTabReachesEverything(QWidget& window) {
    constexpr int mostSteps = 1000;
    QTest::keyClick(&window, Qt::Key_Tab);
    QWidget* const first = QApplication::focusWidget();
    ASSERT_NE(first, nullptr);
    std::set<QWidget*> reached;
    QWidget* at = first;
    int steps = 0;
    do {
        reached.insert(at);
        QTest::keyClick(at, Qt::Key_Tab);
        at = QApplication::focusWidget();
        ASSERT_NE(at, nullptr) << "the keyboard is lost after " << reached.size() << " controls";
    } while (at != first && ++steps < mostSteps);
    EXPECT_EQ(at, first) << "Tab hangs on " << Describe(at);
    FollowArrows(reached);
    for (QWidget* control : ControlsOnView(window)) {
        if (control->isEnabled() && !HasAnotherWay(*control)) {
            EXPECT_TRUE(reached.count(control)) << "Tab never comes to " << Describe(control);
        }
    }
}

} // namespace tqx::test
