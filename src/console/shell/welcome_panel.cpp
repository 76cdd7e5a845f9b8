#include "shell/welcome_panel.h"

#include <controls/look.h>

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace tqx {
namespace {

int LineOfKey(const QString& key) {
    const auto* line = std::find_if(HelpLines.begin(), HelpLines.end(),
                                    [&](const HelpLine& each) { return key == each.Key; });
    return static_cast<int>(line - HelpLines.begin());
}

QToolButton* KeyButton(QAction* key) {
    auto* button = new QToolButton;
    button->setDefaultAction(key);
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIconSize({28, 28});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

WelcomePanel::WelcomePanel(const QList<QAction*>& keys, QWidget* parent)
    : QWidget(parent)
    , m_version(new QLabel) {
    setObjectName("MainPanel");
    auto* title = new QLabel(tr("TQX7716 Evaluation Software"));
    title->setObjectName("Label1");
    title->setFont(look::WordsFont(look::Size::Banner, look::Strong));
    m_version->setObjectName("lblVersion");
    look::SetInk(*m_version, look::QuietInk);

    auto* lines = new QGridLayout;
    lines->setHorizontalSpacing(4 * look::Grid);
    lines->setVerticalSpacing(2 * look::Grid);
    for (int row = 0; row < keys.size(); ++row) {
        QAction* key = keys[row];
        const int index = LineOfKey(key->objectName());
        auto* name = new QLabel(key->text());
        name->setFont(look::WordsFont(look::Size::Section, look::Strong));
        auto* text = new QLabel(tr(HelpLines.at(static_cast<std::size_t>(index)).Text));
        text->setObjectName(QStringLiteral("Label2(%1)").arg(index));
        lines->addWidget(KeyButton(key), row, 0);
        lines->addWidget(name, row, 1);
        lines->addWidget(text, row, 2);
    }
    lines->setColumnStretch(2, 1);

    auto* handbook = new QLabel(tr("F1 opens the handbook at the page of the window in front."));
    handbook->setObjectName("HandbookHint");
    look::SetInk(*handbook, look::QuietInk);

    auto* page = new QVBoxLayout;
    page->addWidget(title);
    page->addWidget(m_version);
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

void WelcomePanel::Version(const QString& text) {
    m_version->setText(text);
}

} // namespace tqx
