#include "trace_page.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <simulated/simulated_board.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStringList>
#include <QVBoxLayout>

#include <algorithm>

namespace tqx {
namespace {

constexpr int SecondsWidth = 12; // five digits, a point and microseconds
constexpr int SecondsDecimals = 6;

} // namespace

TraceModel::TraceModel(sim::BusTrace& trace, const QFont& face, QObject* parent)
    : QAbstractListModel(parent)
    , m_trace(trace)
    , m_face(face) {}

bool TraceModel::Refresh() {
    if (m_version == m_trace.Version()) {
        return false;
    }
    beginResetModel();
    m_version = m_trace.Version();
    m_lines = m_trace.Lines();
    const auto longest = std::max_element(m_lines.begin(), m_lines.end(),
                                          [](const sim::TraceLine& a, const sim::TraceLine& b) {
                                              return a.Text.size() < b.Text.size();
                                          });
    if (longest != m_lines.end()) {
        const QFontMetrics metrics(m_face);
        const QString text = TextOf(static_cast<int>(longest - m_lines.begin()));
        m_rowSize = {metrics.horizontalAdvance(text) + 4 * look::Grid, metrics.lineSpacing()};
    }
    endResetModel();
    return true;
}

int TraceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant TraceModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::DisplayRole) {
        return TextOf(index.row());
    }
    return role == Qt::SizeHintRole ? QVariant(m_rowSize) : QVariant();
}

QString TraceModel::TextOf(int row) const {
    const sim::TraceLine& line = m_lines.at(static_cast<std::size_t>(row));
    const double seconds = std::chrono::duration<double>(line.Time).count();
    return QString::number(seconds, 'f', SecondsDecimals).rightJustified(SecondsWidth) + "  " +
           QString::fromStdString(line.Text);
}

TracePage::TracePage(sim::SimulatedBoard& board)
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
    kit::Name(*clear, "ClearCMD", {}, "Clears the trace");
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
