#include "trace_model.h"

#include <controls/look.h>

#include <QFontMetrics>

#include <algorithm>

namespace tqx {
namespace {

constexpr int SecondsWidth = 12; // five digits, a point and microseconds
constexpr int SecondsDecimals = 6;

} // namespace

TraceModel::TraceModel(BusTrace& trace, const QFont& face, QObject* parent)
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
    const auto longest = std::max_element(
        m_lines.begin(), m_lines.end(),
        [](const TraceLine& a, const TraceLine& b) { return a.Text.size() < b.Text.size(); });
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
    const TraceLine& line = m_lines.at(static_cast<std::size_t>(row));
    const double seconds = std::chrono::duration<double>(line.Time).count();
    return QString::number(seconds, 'f', SecondsDecimals).rightJustified(SecondsWidth) + "  " +
           QString::fromStdString(line.Text);
}

} // namespace tqx
