#pragma once

#include <QAction>

#include <array>

class QMenu;

namespace tqx {

/// What a chart does on a key or by its menu.
enum class StripCommand {
    Freeze,
    Live,
    WholeRun,
    ZoomIn,
    ZoomOut,
    ZoomValuesIn,
    ZoomValuesOut,
    FirstCursor,
    SecondCursor,
    NoCursors,
    CopyReadout,
    ToggleTrace,
    OnlyTrace,
    AllTraces,
    CopyPicture,
    SavePicture,
    SaveView,
    SaveAll,
    Count
};

/// The actions of a chart, one per command; their keys count while the chart has the focus.
class StripCommands {
public:
    /// Adds them to `chart`, which owns them.
    explicit StripCommands(QWidget& chart);

    QAction& operator[](StripCommand command) const {
        return *m_actions[static_cast<std::size_t>(command)];
    }

    /// Puts all of them into `menu`, in groups.
    void FillMenu(QMenu& menu) const;

    /// The keys in words, a line each, those without an action among them.
    QString Keys() const;

private:
    std::array<QAction*, static_cast<std::size_t>(StripCommand::Count)> m_actions{};
};

} // namespace tqx
