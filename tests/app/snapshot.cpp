#include "app/snapshot.h"

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QMetaEnum>

#include <array>
#include <utility>

namespace tqx::test {
namespace {

QString Quoted(const char* what, QString text) {
    text.replace('\n', "\\n");
    return text.isEmpty() ? QString() : QStringLiteral(" %1=\"%2\"").arg(what, text);
}

QString Place(const QWidget& control, const QWidget& window) {
    const QPoint at = control.mapTo(&window, QPoint());
    return QStringLiteral("%1,%2 %3x%4")
        .arg(at.x())
        .arg(at.y())
        .arg(control.width())
        .arg(control.height());
}

QString Describe(QWidget& control, const QWidget& window) {
    QString line = Place(control, window) + (control.isEnabled() ? "" : " disabled");
    if (auto* face = QAccessible::queryAccessibleInterface(&control)) {
        line += ' ';
        line += QMetaEnum::fromType<QAccessible::Role>().valueToKey(face->role());
        const QAccessible::State state = face->state();
        using Flag = std::pair<const char*, bool>;
        for (const auto& [word, set] :
             {Flag{"checked", state.checked}, Flag{"default", state.defaultButton},
              Flag{"read-only", state.readOnly}, Flag{"focused", state.focused}}) {
            line += set ? QStringLiteral(" ") + word : QString();
        }
        line += Quoted("name", face->text(QAccessible::Name));
        line += Quoted("value", face->text(QAccessible::Value));
        if (const QString description = face->text(QAccessible::Description);
            description != control.toolTip() && description != face->text(QAccessible::Value)) {
            line += Quoted("description", description);
        }
        line += Quoted("keys", face->text(QAccessible::Accelerator));
    }
    line += Quoted("tip", control.toolTip());
    if (const auto* combo = qobject_cast<QComboBox*>(&control)) {
        QStringList items;
        for (int item = 0; item < combo->count(); ++item) {
            items << combo->itemText(item);
        }
        line += Quoted("items", items.join('|'));
    }
    for (const QAction* action : control.actions()) {
        line += Quoted("action", (action->text() + ' ' + action->shortcut().toString()).trimmed());
    }
    return line;
}

/// The controls that Tab reaches, from the first on.
QString TabOrder(QWidget& window) {
    QStringList order;
    for (QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain()) {
        const bool reached =
            (at->focusPolicy() & Qt::TabFocus) != 0 && at->isEnabled() && at->isVisibleTo(&window);
        if (reached && at->focusProxy() == nullptr) {
            order << at->objectName();
        }
    }
    return order.join(' ');
}

} // namespace

Snapshot::Lines Snapshot::LinesOf(QWidget& window) {
    Lines lines{{"tab order", TabOrder(window)},
                {"window", window.isModal() ? "modal" : "not modal"}};
    lines["window"] += Quoted("title", window.windowTitle());
    const auto controls = window.findChildren<QWidget*>();
    for (QWidget* control : controls) {
        const QString name = control->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || control->isWindow() ||
            !control->isVisibleTo(&window)) {
            continue;
        }
        QString key = name;
        for (int twin = 2; lines.contains(key); ++twin) {
            key = QStringLiteral("%1 #%2").arg(name).arg(twin);
        }
        lines[key] = Describe(*control, window);
        if (!control->whatsThis().isEmpty()) {
            lines[key + " help"] = Quoted("keys", control->whatsThis());
        }
    }
    return lines;
}

std::string Snapshot::Of(QWidget& window) {
    Lines lines = LinesOf(window);
    Lines& last = m_last[window.objectName()];
    QString changed;
    for (const auto& [name, line] : lines) {
        if (const auto before = last.find(name); before == last.end() || before->second != line) {
            changed += QStringLiteral("%1: %2\n").arg(name, line);
        }
    }
    QString gone;
    for (const auto& [name, line] : last) {
        gone += lines.contains(name) ? QString() : ' ' + name;
    }
    changed += gone.isEmpty() ? gone : "gone:" + gone + '\n';
    last = std::move(lines);
    return changed.toStdString();
}

} // namespace tqx::test
