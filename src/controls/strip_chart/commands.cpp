#include "strip_chart/commands.h"

#include <QCoreApplication>
#include <QMenu>

namespace tqx {
namespace {

struct Entry {
    const char* Text;
    std::array<const char*, 2> Keys;
    bool Checkable = false;
    bool EndsGroup = false;
};

/// In the order of StripCommand, which is the order of the menu.
constexpr std::array<Entry, static_cast<std::size_t>(StripCommand::Count)> Entries = {{
    {QT_TRANSLATE_NOOP("StripChart", "&Freeze the picture"), {"Space"}, true},
    {QT_TRANSLATE_NOOP("StripChart", "Back to &live"), {"Home"}},
    {QT_TRANSLATE_NOOP("StripChart", "&Whole run"), {"W"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom time &in"), {"+", "="}},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom time &out"), {"-"}},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom values in"), {"Ctrl++", "Ctrl+="}},
    {QT_TRANSLATE_NOOP("StripChart", "Zoom values out"), {"Ctrl+-"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "Cursor &1"), {"1"}, true},
    {QT_TRANSLATE_NOOP("StripChart", "Cursor &2"), {"2"}, true},
    {QT_TRANSLATE_NOOP("StripChart", "&Remove the cursors"), {"Esc"}},
    {QT_TRANSLATE_NOOP("StripChart", "Copy what the cursors read"), {"Ctrl+Shift+C"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "&Hide or show the trace picked"), {"Return", "Enter"}},
    {QT_TRANSLATE_NOOP("StripChart", "O&nly the trace picked"), {"O"}},
    {QT_TRANSLATE_NOOP("StripChart", "Show &all traces"), {"A"}, false, true},
    {QT_TRANSLATE_NOOP("StripChart", "&Copy the picture"), {"Ctrl+C"}},
    {QT_TRANSLATE_NOOP("StripChart", "&Save the picture..."), {"Ctrl+S"}},
    {QT_TRANSLATE_NOOP("StripChart", "&Export the samples on view..."), {"Ctrl+E"}},
    {QT_TRANSLATE_NOOP("StripChart", "Ex&port all samples..."), {"Ctrl+Shift+E"}},
}};

} // namespace

StripCommands::StripCommands(QWidget& chart) {
    for (std::size_t i = 0; i < Entries.size(); ++i) {
        auto* action =
            new QAction(QCoreApplication::translate("StripChart", Entries[i].Text), &chart);
        QList<QKeySequence> keys;
        for (const char* key : Entries[i].Keys) {
            if (key != nullptr) {
                keys.append(QKeySequence(QLatin1String(key)));
            }
        }
        action->setShortcuts(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        action->setCheckable(Entries[i].Checkable);
        chart.addAction(action);
        m_actions[i] = action;
    }
}

void StripCommands::FillMenu(QMenu& menu) const {
    for (std::size_t i = 0; i < Entries.size(); ++i) {
        menu.addAction(m_actions[i]);
        if (Entries[i].EndsGroup) {
            menu.addSeparator();
        }
    }
}

QString StripCommands::Keys() const {
    QString text = QCoreApplication::translate(
        "StripChart", "Left and Right move the cursor (with Shift ten steps) or the view; "
                      "Page Up and Page Down turn a page of time; Ctrl+Up and Ctrl+Down move the "
                      "values; Up and Down pick a legend line.");
    for (const QAction* action : m_actions) {
        text += QLatin1Char('\n') + action->shortcut().toString(QKeySequence::NativeText) +
                QStringLiteral(": ") + action->text().remove(QLatin1Char('&'));
    }
    return text;
}

} // namespace tqx
