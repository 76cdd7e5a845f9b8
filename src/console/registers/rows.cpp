#include "registers/rows.h"

#include "registers/layout.h"

#include <controls/look.h>
#include <controls/number_text.h>
#include <controls/row_label.h>

#include <QFocusEvent>
#include <QGridLayout>

#include <algorithm>

namespace tqx {

RegisterRows::RegisterRows(QWidget* parent)
    : QTabWidget(parent) {
    setObjectName("RWTAB");
    setAccessibleName("Registers by group");
    for (std::size_t tab = 0; tab < m_pages.size(); ++tab) {
        MakePage(static_cast<RegisterTab>(tab));
    }
}

void RegisterRows::MakePage(RegisterTab tab) {
    TabPage& page = m_pages[static_cast<std::size_t>(tab)];
    page.Display = new QWidget;
    look::MakeDisplay(*page.Display);
    auto* grid = new QGridLayout(page.Display);
    grid->setContentsMargins(3 * look::Grid, 3 * look::Grid, 3 * look::Grid, 3 * look::Grid);
    grid->setHorizontalSpacing(look::Grid);
    grid->setVerticalSpacing(2 * look::Grid);

    std::array<int, RowColumns> lines{};
    for (const RowRun& run : RowRuns) {
        for (int index = run.First; run.Tab == tab && index <= run.Last; ++index) {
            MakeRow(index);
            grid->addWidget(&Row(index), lines[static_cast<std::size_t>(run.Column)]++, run.Column);
        }
    }
    for (int column = 0; column < RowColumns; ++column) {
        grid->setColumnStretch(column, 1);
    }
    grid->setRowStretch(grid->rowCount(), 1);
    MakeTabStop(page, *static_cast<RowLabel*>(grid->itemAtPosition(0, 0)->widget()));
    addTab(page.Display, TextOf(CaptionOf(tab)));
}

void RegisterRows::MakeRow(int index) {
    const RegisterEntry& entry = RegisterMap[static_cast<std::size_t>(index)];
    auto* row = new RowLabel(TextOf(entry.Caption), &Page(entry.Tab));
    row->setObjectName(QString("read_writedisplaytext(%1)").arg(index));
    row->setToolTip(TextOf(entry.Tooltip));
    row->setFont(look::NumbersFont(look::Size::Section));
    row->setFocusPolicy(Qt::ClickFocus);
    row->installEventFilter(this);
    m_rows[static_cast<std::size_t>(index)] = row;

    connect(row, &RowLabel::MouseMoved, this, [this, index] {
        EnterRow(index);
        Q_EMIT PointerEntered();
    });
    connect(row, &RowLabel::clicked, this, [this, index] { Q_EMIT RowClicked(index); });
}

void RegisterRows::MakeTabStop(TabPage& page, RowLabel& row) {
    if (page.TabStop != nullptr) {
        page.TabStop->setFocusPolicy(Qt::ClickFocus);
    }
    page.TabStop = &row;
    row.setFocusPolicy(Qt::StrongFocus);
}

QWidget& RegisterRows::Page(RegisterTab tab) const {
    return *m_pages[static_cast<std::size_t>(tab)].Display;
}

void RegisterRows::EnterRow(int index) {
    HoverRows(m_rows, m_consoleHoverRow, index);
}

void RegisterRows::LeaveRows() {
    RowLabel& row = Row(m_consoleHoverRow);
    row.ForeColor(AfterPointerLeft(row.ForeColor()));
}

void RegisterRows::ClickRow(int index) {
    m_consoleHoverRow = index;
    MarkClicked(m_rows, Row(index));
}

bool RegisterRows::eventFilter(QObject* watched, QEvent* event) {
    const int index = IndexOf(watched);
    switch (index < 0 ? QEvent::None : event->type()) {
    case QEvent::Leave:
        Q_EMIT PointerLeft();
        break;
    case QEvent::FocusIn:
        RowFocused(index, static_cast<QFocusEvent*>(event)->reason());
        break;
    case QEvent::FocusOut:
        RowLostFocus(index);
        break;
    default:
        break;
    }
    return QTabWidget::eventFilter(watched, event);
}

int RegisterRows::IndexOf(const QObject* row) const {
    const auto at = std::ranges::find(m_rows, row);
    return at == m_rows.end() ? -1 : static_cast<int>(at - m_rows.begin());
}

void RegisterRows::RowFocused(int index, Qt::FocusReason reason) {
    const RegisterTab tab = RegisterMap[static_cast<std::size_t>(index)].Tab;
    MakeTabStop(m_pages[static_cast<std::size_t>(tab)], Row(index));
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) {
        EnterRow(index);
    }
}

void RegisterRows::RowLostFocus(int index) {
    if (index == m_consoleHoverRow && !Row(index).underMouse()) {
        Q_EMIT PointerLeft();
    }
}

} // namespace tqx
