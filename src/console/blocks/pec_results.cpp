#include "blocks/pec_results.h"

#include <controls/look.h>

#include <QHBoxLayout>
#include <QPainter>

namespace tqx {
namespace {

constexpr int MarkSize = 7 * look::Grid;

} // namespace

PECMark::PECMark(QWidget* parent)
    : QWidget(parent) {
    setObjectName("PECOKShape");
    setToolTip("Green: the PEC was good. Red: it was not. Grey: not known");
    setFixedSize(MarkSize, MarkSize);
    Show(State::Unknown);
}

void PECMark::Show(State state) {
    m_state = state;
    setAccessibleName(state == State::Good  ? "PEC good"
                      : state == State::Bad ? "PEC bad"
                                            : "PEC not known");
    update();
}

QColor PECMark::FillColor() const {
    switch (m_state) {
    case State::Good:
        return look::PECGood;
    case State::Bad:
        return look::PECBad;
    case State::Unknown:
        break;
    }
    return look::PECUnknown;
}

QSize PECMark::sizeHint() const {
    return {MarkSize, MarkSize};
}

void PECMark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(FillColor());
    painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    // The sign inside, on a square of one unit.
    painter.scale(width(), height());
    painter.setPen(QPen(Qt::white, 0.1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (m_state == State::Good) {
        painter.drawPolyline(QPolygonF{{0.28, 0.52}, {0.44, 0.68}, {0.73, 0.35}});
    } else if (m_state == State::Bad) {
        painter.drawLine(QLineF(0.33, 0.33, 0.67, 0.67));
        painter.drawLine(QLineF(0.67, 0.33, 0.33, 0.67));
    }
}

PECResults::PECResults(QWidget* parent)
    : QGroupBox("PEC Results", parent)
    , m_status(new QLabel)
    , m_mark(new PECMark) {
    m_status->setObjectName("PECStatusLBL");
    m_status->setFont(look::WordsFont(look::Size::Section, look::Strong));
    auto* line = new QHBoxLayout(this);
    line->setSpacing(3 * look::Grid);
    line->addWidget(m_mark);
    line->addWidget(m_status, 1);
    Reset(true);
}

void PECResults::Wait() {
    m_status->setText("Please Wait....");
    // The transfer holds the event loop until it is through.
    m_status->repaint();
}

void PECResults::Show(bool good) {
    m_mark->Show(good ? PECMark::State::Good : PECMark::State::Bad);
    m_status->setText(good ? "PEC was OK" : "PEC Failed");
}

void PECResults::Reset(bool usePEC) {
    m_status->setText(usePEC ? "PEC Status" : "");
    m_mark->Show(PECMark::State::Unknown);
}

} // namespace tqx
