#include "shell/main_panel.h"

#include "shell/toolbar_keys.h"

#include <controls/look.h>

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace tqx {
namespace {

QToolButton* ButtonOf(QAction* action) {
    auto* button = new QToolButton;
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIconSize({28, 28});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

MainPanel::MainPanel(const QList<QAction*>& actions, const QString& version, QWidget* parent)
    : QWidget(parent) {
    setObjectName("MainPanel");
    auto* title = new QLabel("TQX7716 Evaluation Software");
    title->setObjectName("Label1");
    title->setFont(look::WordsFont(look::Size::Banner, look::Strong));
    auto* versionLabel = new QLabel(version);
    versionLabel->setObjectName("lblVersion");
    look::SetInk(*versionLabel, look::QuietInk);

    auto* lines = new QGridLayout;
    lines->setHorizontalSpacing(4 * look::Grid);
    lines->setVerticalSpacing(2 * look::Grid);
    for (int row = 0; row < actions.size(); ++row) {
        const ToolbarKey& key = ToolbarKeys.at(static_cast<std::size_t>(row));
        auto* name = new QLabel(key.Name);
        name->setFont(look::WordsFont(look::Size::Section, look::Strong));
        auto* text = new QLabel(key.Help);
        text->setObjectName(QStringLiteral("Label2(%1)").arg(key.HelpIndex));
        lines->addWidget(ButtonOf(actions[row]), row, 0);
        lines->addWidget(name, row, 1);
        lines->addWidget(text, row, 2);
    }
    lines->setColumnStretch(2, 1);

    auto* handbook = new QLabel("F1 opens the handbook page of the window in front.");
    handbook->setObjectName("HandbookHint");
    look::SetInk(*handbook, look::QuietInk);

    auto* page = new QVBoxLayout;
    page->addWidget(title);
    page->addWidget(versionLabel);
    page->addSpacing(8 * look::Grid);
    page->addLayout(lines);
    page->addSpacing(6 * look::Grid);
    page->addWidget(handbook);

    auto* centred = new QGridLayout(this);
    centred->setRowStretch(0, 2);
    centred->setColumnStretch(0, 1);
    centred->addLayout(page, 1, 1);
    centred->setColumnStretch(2, 1);
    centred->setRowStretch(2, 3);
}

} // namespace tqx
