#include "elided_label.h"
#include "register_dump/format_sample.h"
#include "register_dump/register_dump_frm.h"

#include <controls/factories.h>
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
    m_statusLBL = kit::Label("StatusLBL", {});
    m_statusLBL->setWordWrap(true);
    m_statusLBL->setAlignment(Qt::AlignTop);
    m_statusLBL->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_statusLBL->setFixedHeight(StatusLines * m_statusLBL->fontMetrics().lineSpacing());
    m_statusLBL->setAccessibleName("Status");
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
        TickedBox("RAMSettingsCHK", "Dump RAM", "Takes all 256 registers into the dump");
    auto* sample = new FormatSample(SampleText("Label1(0)", "74:5D"),
                                    {{0, 2, kit::Label("Label2(0)", "Address Pointer")},
                                     {3, 2, kit::Label("Label3(0)", "Data")}});
    return Choice("Frame1", "RAM", m_ramSettingsCHK,
                  kit::Label("Label4", "RAM data is dumped in the following format;"), sample);
}

QGroupBox* RegisterDumpFRM::MakeEEPROM() {
    m_eepromSettingsCHK = TickedBox("EEPROMSettingsCHK", "Dump EEPROM",
                                    "Takes the 8192 bytes of the EEPROM into the dump");
    auto* sample = new FormatSample(SampleText("Label1(1)", "80,11:0"),
                                    {{0, 2, kit::Label("Label2(2)", "High Byte")},
                                     {3, 2, kit::Label("Label2(1)", "Low Byte")},
                                     {6, 1, kit::Label("Label3(1)", "Data")}});
    return Choice("Frame2", "EEPROM", m_eepromSettingsCHK,
                  kit::Label("Label5", "EEPROM data is dumped in the following format;"), sample);
}

QGroupBox* RegisterDumpFRM::MakeTarget() {
    QGroupBox* frame = kit::Frame("TargetFrame", "Target");
    m_pathLBL = new ElidedLabel;
    m_pathLBL->setObjectName("PathLBL");
    m_pathLBL->setFont(look::NumbersFont());
    m_pathLBL->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_browseCMD = kit::Button("BrowseCMD", "Browse", "Chooses the file", "Alt+B");
    m_dumpCMD = kit::Button("DumpCMD", "Dump Now", "Adds a dump to the end of the file", "Alt+D");
    m_dumpCMD->setDefault(true);
    m_stopDumpCMD =
        kit::Button("StopDumpCMD", "Stop Dump", "Ends the dump early; the file tells so", "Alt+S");
    m_stopDumpCMD->setEnabled(false);
    m_progressBar1 = new PercentBar;
    m_progressBar1->setObjectName("ProgressBar1");
    m_progressBar1->setAccessibleName("Part of the dump that is done");
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
