#include "register_dump/register_dump_frm.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/percent_bar.h>
#include <device/bench.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>
#include <vector>

// What stands where in the register dump window, and what each control sets off.
namespace tqx {
namespace {

constexpr int StatusLines = 3; // room for a path and a reason

constexpr int LineHeight = 4 * look::Grid;
constexpr int HintedCharacters = 24;

/// A sample of a written format whose parts are named beneath it, with a line from each part to
/// its name.
class FormatSample : public QWidget {
public:
    struct Part {
        int First; // character of the sample
        int Length;
        QLabel* Name;
    };

    /// Takes the labels over.
    FormatSample(QLabel* sample, std::vector<Part> parts);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_sample;
    std::vector<Part> m_parts;
};

FormatSample::FormatSample(QLabel* sample, std::vector<Part> parts)
    : m_sample(sample)
    , m_parts(std::move(parts)) {
    auto* names = new QHBoxLayout;
    names->setSpacing(5 * look::Grid);
    names->addStretch();
    for (const Part& part : m_parts) {
        names->addWidget(part.Name);
    }
    names->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_sample, 0, Qt::AlignHCenter);
    column->addSpacing(LineHeight);
    column->addLayout(names);
}

void FormatSample::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(look::QuietInk), 1));
    const QFontMetricsF metrics(m_sample->font());
    const QString text = m_sample->text();
    for (const Part& part : m_parts) {
        const qreal from = m_sample->x() + metrics.horizontalAdvance(text.left(part.First));
        const qreal width = metrics.horizontalAdvance(text.mid(part.First, part.Length));
        const qreal bottom = m_sample->geometry().bottom() + 1.5;
        const QPointF name(part.Name->geometry().center().x(), part.Name->y() - 1);
        painter.drawLine(QPointF(from + 1, bottom), QPointF(from + width - 1, bottom));
        painter.drawLine(QPointF(from + width / 2, bottom), name);
    }
}

/// A label of one line that takes what room there is and leaves out the middle of a long text.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override {
        return {fontMetrics().averageCharWidth() * HintedCharacters, fontMetrics().height()};
    }

    QSize sizeHint() const override { return minimumSizeHint(); }

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
    }
};

/// A frame with the box that takes a part of the chip into the dump, and a sample of its rows.
QGroupBox* Choice(const QString& name, const QString& title, QCheckBox* box, QLabel* note,
                  FormatSample* sample) {
    QGroupBox* frame = kit::Frame(name, title);
    look::SetInk(*note, look::QuietInk);
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(2 * look::Grid);
    column->addWidget(box);
    column->addWidget(note);
    column->addWidget(sample);
    return frame;
}

QCheckBox* TickedBox(const QString& name, const QString& text, const QString& tooltip) {
    QCheckBox* box = kit::CheckBox(name, text, tooltip);
    box->setChecked(true);
    return box;
}

QLabel* SampleText(const QString& name, const QString& text) {
    return kit::Label(name, text, look::NumbersFont(look::Size::Large), look::BodyInk);
}

} // namespace

void RegisterDumpFRM::MakeLayout() {
    m_status = kit::Label("StatusLBL", {});
    m_status->setWordWrap(true);
    m_status->setAlignment(Qt::AlignTop);
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_status->setFixedHeight(StatusLines * m_status->fontMetrics().lineSpacing());
    m_status->setAccessibleName("Status");
    m_status->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* choices = new QHBoxLayout;
    choices->setSpacing(3 * look::Grid);
    choices->addWidget(MakeRAM());
    choices->addWidget(MakeEEPROM());

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(choices);
    layout->addWidget(MakeTarget());
    layout->addWidget(m_status);
    m_dump->setFocus();
}

QGroupBox* RegisterDumpFRM::MakeRAM() {
    m_ram = TickedBox("RAMSettingsCHK", "Dump RAM", "Includes all 256 registers in the dump");
    auto* sample = new FormatSample(SampleText("Label1(0)", "74:5D"),
                                    {{0, 2, kit::Label("Label2(0)", "Address Pointer")},
                                     {3, 2, kit::Label("Label3(0)", "Data")}});
    return Choice("Frame1", "RAM", m_ram,
                  kit::Label("Label4", "RAM data is dumped in the following format;"), sample);
}

QGroupBox* RegisterDumpFRM::MakeEEPROM() {
    m_eeprom = TickedBox("EEPROMSettingsCHK", "Dump EEPROM",
                         "Includes the 8192 bytes of the EEPROM in the dump");
    auto* sample = new FormatSample(SampleText("Label1(1)", "80,11:0"),
                                    {{0, 2, kit::Label("Label2(2)", "High Byte")},
                                     {3, 2, kit::Label("Label2(1)", "Low Byte")},
                                     {6, 1, kit::Label("Label3(1)", "Data")}});
    return Choice("Frame2", "EEPROM", m_eeprom,
                  kit::Label("Label5", "EEPROM data is dumped in the following format;"), sample);
}

QGroupBox* RegisterDumpFRM::MakeTarget() {
    QGroupBox* frame = kit::Frame("TargetFrame", "Target");
    m_path = new ElidedLabel;
    m_path->setObjectName("PathLBL");
    m_path->setFont(look::NumbersFont());
    m_path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_browse = kit::Button("BrowseCMD", "Browse", "Chooses the file", "Alt+B");
    m_dump = kit::Button("DumpCMD", "Dump Now", "Adds a dump to the end of the file", "Alt+D");
    m_dump->setDefault(true);
    m_stop =
        kit::Button("StopDumpCMD", "Stop Dump", "Ends the dump early; the file says so", "Alt+S");
    m_stop->setEnabled(false);
    m_progress = new PercentBar;
    m_progress->setObjectName("ProgressBar1");
    m_progress->setAccessibleName("Progress of the dump");
    m_progress->StandAt(0);
    connect(m_browse, &QPushButton::clicked, this, &RegisterDumpFRM::Browse);
    connect(m_dump, &QPushButton::clicked, this, OnLink(m_bench.Failures, [this] { Dump(); }));
    connect(m_stop, &QPushButton::clicked, this, [this] { m_stopRequested = true; });

    auto* target = new QHBoxLayout;
    target->addWidget(m_path, 1);
    target->addWidget(m_browse);
    auto* run = new QHBoxLayout;
    run->addWidget(m_progress, 1);
    run->addWidget(m_stop);
    run->addWidget(m_dump);
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(2 * look::Grid);
    column->addLayout(target);
    column->addLayout(run);
    return frame;
}

} // namespace tqx
