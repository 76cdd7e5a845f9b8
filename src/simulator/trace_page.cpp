#include "trace_page.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <simulated/simulated_board.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>

namespace tqx {

TracePage::TracePage(SimulatedBoard& board)
    : m_trace(board.Trace())
    , m_model(m_trace, look::NumbersFont(look::Size::Note)) {
    MakeList();
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(2 * look::Grid);
    layout->addWidget(m_list, 1);
    layout->addWidget(kit::SmallPrint(
        {}, "Seconds, then the transfer: S start, Sr repeated start, P stop, w and r the direction "
            "behind an address, + acknowledged, - not acknowledged."));
    layout->addLayout(MakeButtons());
}

void TracePage::MakeList() {
    m_list = new QListView;
    kit::Name(*m_list, "TraceLIST", "Bus trace",
              "The last transfers on the bus, the newest at the bottom. Pause to select.");
    m_list->setFont(look::NumbersFont(look::Size::Note));
    look::MakeDisplay(*m_list);
    m_list->setModel(&m_model);
    m_list->setUniformItemSizes(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    auto* copy = new QAction("Copy", m_list);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, &TracePage::Copy);
    m_list->addAction(copy);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QHBoxLayout* TracePage::MakeButtons() {
    auto* pause = new QPushButton("&Pause");
    pause->setCheckable(true);
    pause->setChecked(m_trace.Paused());
    kit::Name(*pause, "PauseCMD", {}, "Stops the trace where it is, and lets it run on");
    connect(pause, &QPushButton::toggled, this, [this](bool paused) {
        m_trace.Paused(paused);
        Refresh();
    });
    auto* copy = new QPushButton("&Copy");
    kit::Name(*copy, "CopyCMD", {}, "Copies the selected lines, or all of them, as text");
    connect(copy, &QPushButton::clicked, this, &TracePage::Copy);
    auto* clear = new QPushButton("C&lear");
    kit::Name(*clear, "ClearCMD", {}, "Drops what the trace has kept");
    connect(clear, &QPushButton::clicked, this, [this] {
        m_trace.Clear();
        Refresh();
    });

    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {pause, copy, clear}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    return buttons;
}

void TracePage::Refresh() {
    const QScrollBar& bar = *m_list->verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    const int place = bar.value();
    if (!m_model.Refresh()) {
        return;
    }
    if (atEnd) {
        m_list->scrollToBottom();
    } else {
        m_list->verticalScrollBar()->setValue(place);
    }
}

void TracePage::Copy() const {
    QModelIndexList selected = m_list->selectionModel()->selectedIndexes();
    std::sort(selected.begin(), selected.end());
    QStringList lines;
    if (selected.isEmpty()) {
        for (int row = 0; row < m_model.rowCount(); ++row) {
            lines.append(m_model.TextOf(row));
        }
    }
    for (const QModelIndex& index : selected) {
        lines.append(m_model.TextOf(index.row()));
    }
    lines.append(QString()); // each line ends
    QApplication::clipboard()->setText(lines.join('\n'));
}

} // namespace tqx
