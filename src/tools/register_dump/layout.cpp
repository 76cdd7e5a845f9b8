#include "elided_label.h"
#include "form_parts.h"
#include "register_dump/format_sample.h"
#include "register_dump/register_dump_frm.h"

#include <controls/look.h>
#include <controls/percent_bar.h>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

// What stands where in the register dump window, and what each control sets off.
namespace tqx {
namespace {

constexpr int StatusLines = 3; // room for a path and a reason

/// A frame with the box that takes a part of the chip into the dump, and a sample of its rows.
QGroupBox* Choice(const QString& name, const QString& title, QCheckBox* box, QLabel* note,
                  FormatSample* sample) {
    QGroupBox* frame = parts::Frame(title, name);
    look::SetInk(*note, look::QuietInk);
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(2 * look::Grid);
    column->addWidget(box);
    column->addWidget(note);
    column->addWidget(sample);
    return frame;
}

QCheckBox* TickedBox(const QString& text, const QString& name, const QString& tooltip) {
    auto* box = new QCheckBox(text);
    box->setObjectName(name);
    box->setToolTip(tooltip);
    box->setChecked(true);
    return box;
}

QLabel* SampleText(const QString& text, const QString& name) {
    QLabel* sample = parts::NumberLabel(text, name, look::BodyInk);
    sample->setFont(look::NumbersFont(look::Size::Large));
    return sample;
}

} // namespace

void RegisterDumpFRM::MakeLayout() {
    m_statusLBL = parts::Label({}, "StatusLBL");
    m_statusLBL->setWordWrap(true);
    m_statusLBL->setAlignment(Qt::AlignTop);
    m_statusLBL->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_statusLBL->setFixedHeight(StatusLines * m_statusLBL->fontMetrics().lineSpacing());
    m_statusLBL->setAccessibleName(tr("Status"));
    m_statusLBL->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* choices = new QHBoxLayout;
    choices->setSpacing(3 * look::Grid);
    choices->addWidget(MakeRAM());
    choices->addWidget(MakeEEPROM());

    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(choices);
    layout->addWidget(MakeTarget());
    layout->addWidget(m_statusLBL);
    m_dumpCMD->setFocus();
}

QGroupBox* RegisterDumpFRM::MakeRAM() {
    m_ramSettingsCHK =
        TickedBox("Dump RAM", "RAMSettingsCHK", tr("Takes all 256 registers into the dump"));
    auto* sample = new FormatSample(SampleText("74:5D", "Label1(0)"),
                                    {{0, 2, parts::Label("Address Pointer", "Label2(0)")},
                                     {3, 2, parts::Label("Data", "Label3(0)")}});
    return Choice("Frame1", "RAM", m_ramSettingsCHK,
                  parts::Label("RAM data is dumped in the following format;", "Label4"), sample);
}

QGroupBox* RegisterDumpFRM::MakeEEPROM() {
    m_eepromSettingsCHK = TickedBox("Dump EEPROM", "EEPROMSettingsCHK",
                                    tr("Takes the 8192 bytes of the EEPROM into the dump"));
    auto* sample = new FormatSample(SampleText("80,11:0", "Label1(1)"),
                                    {{0, 2, parts::Label("High Byte", "Label2(2)")},
                                     {3, 2, parts::Label("Low Byte", "Label2(1)")},
                                     {6, 1, parts::Label("Data", "Label3(1)")}});
    return Choice("Frame2", "EEPROM", m_eepromSettingsCHK,
                  parts::Label("EEPROM data is dumped in the following format;", "Label5"), sample);
}

QGroupBox* RegisterDumpFRM::MakeTarget() {
    QGroupBox* frame = parts::Frame(tr("Target"), "TargetFrame");
    m_pathLBL = new ElidedLabel;
    m_pathLBL->setObjectName("PathLBL");
    m_pathLBL->setFont(look::NumbersFont());
    m_pathLBL->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_browseCMD = parts::Button("Browse", "BrowseCMD", tr("Chooses the file"), "Alt+B");
    m_dumpCMD =
        parts::Button("Dump Now", "DumpCMD", tr("Adds a dump to the end of the file"), "Alt+D");
    m_dumpCMD->setDefault(true);
    m_stopDumpCMD = parts::Button("Stop Dump", "StopDumpCMD",
                                  tr("Ends the dump early; the file tells so"), "Alt+S");
    m_stopDumpCMD->setEnabled(false);
    m_progressBar1 = new PercentBar;
    m_progressBar1->setObjectName("ProgressBar1");
    m_progressBar1->setAccessibleName(tr("Part of the dump that is done"));
    m_progressBar1->Value(0);
    connect(m_browseCMD, &QPushButton::clicked, this, &RegisterDumpFRM::Browse);
    connect(m_dumpCMD, &QPushButton::clicked, this, &RegisterDumpFRM::Dump);
    connect(m_stopDumpCMD, &QPushButton::clicked, this, [this] { m_stopRequested = true; });

    auto* target = new QHBoxLayout;
    target->addWidget(m_pathLBL, 1);
    target->addWidget(m_browseCMD);
    auto* run = new QHBoxLayout;
    run->addWidget(m_progressBar1, 1);
    run->addWidget(m_stopDumpCMD);
    run->addWidget(m_dumpCMD);
    auto* column = new QVBoxLayout(frame);
    column->setSpacing(2 * look::Grid);
    column->addLayout(target);
    column->addLayout(run);
    return frame;
}

} // namespace tqx
