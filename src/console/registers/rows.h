#pragma once

#include <controls/row_label.h>
#include <device/register_map.h>

#include <QTabWidget>

#include <array>

namespace tqx {

/// The 112 register rows under their seven tabs, `RWTAB`, with the row state machine: a row's
/// colour is its state, and only the index of the row last entered is kept beside it.
///
/// The keyboard works as a second pointer: a row that gets the focus by a key is entered, and one
/// that loses it is left. Tab leads to one row of a page, arrow keys from there to the others.
class RegisterRows : public QTabWidget {
    Q_OBJECT

public:
    explicit RegisterRows(QWidget* parent = nullptr);

    RowLabel& Row(int index) const { return *m_rows[static_cast<std::size_t>(index)]; }

    /// The page under a tab, a dark display.
    QWidget& Page(RegisterTab tab) const;

    /// The pointer comes over a row: the row entered before goes to rest, this one lights up.
    void EnterRow(int index);
    /// The pointer is over none of the rows any more: the row last entered goes to rest.
    void LeaveRows();
    /// The colour steps of a click.
    void ClickRow(int index);

Q_SIGNALS:
    void PointerEntered();
    void PointerLeft();
    void RowClicked(int index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// One tab: its display, and the one row of it that the Tab key leads to.
    struct TabPage {
        QWidget* Display = nullptr;
        RowLabel* TabStop = nullptr;
    };

    void MakePage(RegisterTab tab);
    void MakeRow(int index);
    void MakeTabStop(TabPage& page, RowLabel& row);
    int IndexOf(const QObject* row) const;
    void RowFocused(int index, Qt::FocusReason reason);
    void RowLostFocus(int index);

    std::array<RowLabel*, RegisterMap.size()> m_rows{};
    std::array<TabPage, RegisterTabCaptions.size()> m_pages;
    /// The row last entered or clicked (ConsoleHoverRow of the console).
    int m_consoleHoverRow = 0;
};

} // namespace tqx
