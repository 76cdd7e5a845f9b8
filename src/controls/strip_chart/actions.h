#pragma once

#include <QAction>

#include <array>

class QMenu;

namespace tqx::strip {

/// What a chart does on a key or by its menu.
enum class Command {
    Freeze,
    Live,
    WholeRun,
    ZoomIn,
    ZoomOut,
    ZoomValuesIn,
    ZoomValuesOut,
    FitValues,
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
class Commands {
public:
    /// Adds them to `chart`, which owns them.
    explicit Commands(QWidget& chart);

    QAction& operator[](Command command) const {
        return *m_actions[static_cast<std::size_t>(command)];
    }

    /// Puts all of them into `menu`, in groups.
    void FillMenu(QMenu& menu) const;

    /// The keys in words, a line each, those without an action among them.
    QString Keys() const;

private:
    std::array<QAction*, static_cast<std::size_t>(Command::Count)> m_actions{};
};

} // namespace tqx::strip
