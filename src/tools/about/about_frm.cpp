#include "about/about_frm.h"

#include "tools/sys_info.h"

#include <console/version.h>
#include <controls/factories.h>
#include <controls/look.h>

#include <QApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

namespace tqx {
namespace {

constexpr QLatin1String ApplicationTitle("TQX7716 Evaluation Software");
constexpr int PictureSize = 64;
constexpr int TextWidth = 440;

QFrame* Rule(const QString& name) {
    auto* rule = new QFrame;
    rule->setObjectName(name);
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(look::Rule));
    rule->setPalette(palette);
    return rule;
}

QLabel* Picture() {
    const QIcon own = QApplication::windowIcon();
    const QIcon icon = own.isNull() ? QIcon(":/icons/about.svg") : own;
    auto* picture = new QLabel;
    picture->setObjectName("Image1");
    picture->setPixmap(icon.pixmap(PictureSize));
    picture->setAccessibleName("Picture of the program");
    return picture;
}

} // namespace

AboutFRM::AboutFRM(MessageDoor door, SysInfoHost& host)
    : ToolWindow("frmAbout", QStringLiteral("About the ") + ApplicationTitle)
    , m_door(std::move(door))
    , m_host(host) {
    MakeLayout();
}

void AboutFRM::MakeLayout() {
    QLabel* title = kit::Label("lblTitle", ApplicationTitle);
    title->setFont(look::WordsFont(look::Size::Title, look::Strong));
    QLabel* version = kit::Heading("lblVersion", QStringLiteral("Version %1").arg(VersionText));
    QLabel* warning = kit::Label("lblDisclaimer", "Warning: ");
    warning->setFont(look::WordsFont(look::Size::Note, look::Strong));

    auto* names = new QVBoxLayout;
    names->setSpacing(look::Grid);
    names->addWidget(title);
    names->addWidget(version);
    auto* head = new QHBoxLayout;
    head->setSpacing(4 * look::Grid);
    head->addWidget(Picture());
    head->addLayout(names, 1);

    QPushButton* sysInfo = kit::Button("cmdSysInfo", "System Info...",
                                       "Starts the system's own information program", "Alt+S");
    connect(sysInfo, &QPushButton::clicked, this, [this] {
        const Yielding yielding(*this);
        StartSysInfo(m_host, m_door);
    });
    QPushButton* ok = kit::Button("cmdOK", "OK", "Closes this window");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &AboutFRM::close);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(sysInfo);
    buttons->addStretch();
    buttons->addWidget(ok);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(3 * look::Grid);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(head);
    layout->addWidget(kit::Text(
        "lblDescription",
        "This software allows the user to read and write to an TQX7716 connected to the "
        "PIIX4/ICH SMBus or alternatively, an TQX7716 Evaluation Board connected to either a "
        "parallel printer port or a PIIX4/ICH SMBus ",
        TextWidth));
    layout->addWidget(Rule("Line1"));
    layout->addWidget(warning);
    layout->addWidget(kit::SmallPrint(
        "Label1",
        "This program writes to hardware as soon as it is told to. A wrong value in a register "
        "or in the EEPROM can stop a board from working.",
        TextWidth));
    layout->addWidget(kit::SmallPrint("Label2",
                                      "It comes without any warranty; its licence is in the file "
                                      "LICENSE, which comes with every copy.",
                                      TextWidth));
    layout->addWidget(Rule("Line2"));
    layout->addWidget(kit::SmallPrint(
        "HandbookHint", "F1 opens the handbook page of the window in front.", TextWidth));
    layout->addWidget(
        kit::SmallPrint("Label3", "Written by the TQX7716 console's developers.", TextWidth));
    layout->addWidget(
        kit::SmallPrint("Label4", "Set in Inter and JetBrains Mono, drawn with Qt.", TextWidth));
    layout->addLayout(buttons);
    ok->setFocus();
}

} // namespace tqx
