#include "wizard_pages.h"

#include "result_rows.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/number_text.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>

namespace tqx {
namespace {

constexpr int Gap = 4 * look::Grid;
/// Where a text that explains a check box begins: under the box's own text.
constexpr int ExplanationIndent = 6 * look::Grid;

/// In bold Arial, or what the system has in its place.
QLabel* Heading(const QString& name, const QString& text) {
    QLabel* label = kit::Text(name, text);
    QFont font = look::WordsFont(look::Size::Title, QFont::Bold);
    font.setFamilies(QStringList("Arial") + font.families());
    label->setFont(font);
    return label;
}

QLabel* Advice(const QString& name, const QString& text) {
    QLabel* label = kit::Text(name, text);
    label->setIndent(ExplanationIndent);
    look::SetInk(*label, look::GreenInk);
    return label;
}

QCheckBox* Medium(const QString& name, const QString& text, const QString& tooltip,
                  const QString& key) {
    QCheckBox* box = kit::CheckBox(name, text, tooltip, key);
    box->setFont(look::WordsFont(look::Size::Section, look::Strong));
    return box;
}

QVBoxLayout* PageLayout(QWidget* page) {
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->setSpacing(Gap);
    return layout;
}

/// Shows a row without its tail, which is for Finish alone.
class SentenceDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 2 * look::Grid);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = SentenceOfRow(option->text);
    }
};

} // namespace

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent)
    , SkipCMD(kit::Button("SkipCMD", "Skip", "Open the main window without a chip", "Alt+K")) {
    setObjectName("WelcomePanel");
    SkipCMD->setAutoDefault(true);

    QLabel* welcome = kit::Text("WelcomeLBL", "This TQX7716 Search Wizard will find any TQX7716s "
                                              "that can be controlled by this software");
    welcome->setFont(look::WordsFont(look::Size::Title, look::Strong));
    QVBoxLayout* page = PageLayout(this);
    page->addWidget(welcome);
    page->addWidget(kit::Text("WelcomeInstructionsLBL", "Click 'Next' to start."));
    page->addStretch();
    page->addWidget(kit::Text("Label1", "Click \"Skip\" to skip this process (you will not be able "
                                        "to communicate with the TQX7716)."));
    page->addWidget(SkipCMD, 0, Qt::AlignLeft);
}

MediumPage::MediumPage(QWidget* parent)
    : QWidget(parent)
    , PPCheck(Medium("PPCheck", "Parallel Printer Port", "Search the printer ports of this machine",
                     "Alt+P"))
    , SMBusCheck(Medium("SMBusCheck", "On-Board SMBus",
                        "Search the SMBus on this machine's main board", "Alt+S"))
    , SMBusSearchDescLBL(Advice("SMBusSearchDescLBL", {}))
    , SMBusBaseAddressTXT(new QLineEdit("00000"))
    , USBCheck(Medium("USBCheck", "USB", {}, {}))
    , USBSearchDescLBL(Advice("USBSearchDescLBL", {})) {
    setObjectName("SeclectComsMediumPanel");
    PPCheck->setChecked(true);
    USBCheck->setEnabled(false);
    USBCheck->hide();
    USBSearchDescLBL->hide();
    SMBusBaseAddressTXT->setObjectName("SMBusBaseAddressTXT");
    SMBusBaseAddressTXT->setAccessibleName("SMBus base address, hexadecimal");
    SMBusBaseAddressTXT->setToolTip(
        "Base address of the SMBus host controller (SMBBA) as the link gives it, hexadecimal.\n"
        "A number typed here is for your notes: the link takes no base address.");
    SMBusBaseAddressTXT->setFont(look::NumbersFont());
    SMBusBaseAddressTXT->setFixedWidth(28 * look::Grid);
    SMBusBaseAddressTXT->setValidator(new QRegularExpressionValidator(
        QRegularExpression("[0-9A-Fa-f]{0,8}"), SMBusBaseAddressTXT));

    auto* address = new QHBoxLayout;
    address->addSpacing(ExplanationIndent);
    address->addWidget(SMBusBaseAddressTXT);
    address->addStretch();
    QVBoxLayout* page = PageLayout(this);
    page->setSpacing(2 * look::Grid);
    page->addWidget(Heading("MediumHeadingLBL", "Search Medium"));
    page->addSpacing(Gap);
    page->addWidget(PPCheck);
    page->addWidget(Advice("PPSearchDescLBL", "Remember to connect the TQX7716 evaluation "
                                              "board to the printer port"));
    page->addSpacing(Gap);
    page->addWidget(SMBusCheck);
    page->addWidget(SMBusSearchDescLBL);
    page->addLayout(address);
    page->addSpacing(Gap);
    page->addWidget(USBCheck);
    page->addWidget(USBSearchDescLBL);
    page->addStretch();
    page->addWidget(kit::Text("SearchMediumInstLBL", "Click 'Next' to search for the TQX7716."));
}

SearchMedia MediumPage::Checked() const {
    return {.PrinterPort = PPCheck->isChecked(),
            .SMBus = SMBusCheck->isChecked(),
            .USB = USBCheck->isChecked()};
}

void MediumPage::OfferSMBus(std::uint32_t baseAddress) {
    SMBusSearchDescLBL->setText("The Southbridge or ICH of Intel chipsets. For unsupported "
                                "Intel chipsets, enter SMBBA here (Hex).");
    SMBusBaseAddressTXT->setText(HexText(baseAddress));
}

void MediumPage::RefuseSMBus() {
    SMBusSearchDescLBL->setText(
        "Sorry, SMBus communication is only supported on Windows 95,98 and ME.");
    look::SetInk(*SMBusSearchDescLBL, look::DarkRedInk);
    SMBusCheck->setChecked(false);
    SMBusCheck->setEnabled(false);
    SMBusBaseAddressTXT->setEnabled(false);
}

void MediumPage::RefuseUSB() {
    USBSearchDescLBL->setText("Sorry, USB communication is not supported on Windows 95.");
    look::SetInk(*USBSearchDescLBL, look::DarkRedInk);
    USBCheck->setChecked(false);
    USBCheck->setEnabled(false);
}

SearchingPage::SearchingPage(QWidget* parent)
    : QWidget(parent)
    , SearchProgress(new QProgressBar) {
    setObjectName("SearchingPanel");
    SearchProgress->setObjectName("SearchProgress");
    SearchProgress->setAccessibleName("Progress of the search");
    SearchProgress->setRange(0, 100);
    SearchProgress->setValue(0);
    SearchProgress->setTextVisible(false);

    QVBoxLayout* page = PageLayout(this);
    page->addWidget(Heading("SearchingLBL", "Searching"));
    page->addWidget(
        kit::Text("SearchingDetailsLBL", "Please wait while searching for available TQX7716s."));
    page->addWidget(SearchProgress);
    page->addStretch();
}

void SearchingPage::Max(int max) {
    SearchProgress->setMaximum(max);
}

void SearchingPage::Step(int step) {
    SearchProgress->setValue(std::min(SearchProgress->value() + step, SearchProgress->maximum()));
    repaint();
}

void SearchingPage::Rewind() {
    SearchProgress->setValue(0);
}

ResultsPage::ResultsPage(QWidget* parent)
    : QWidget(parent)
    , SearchResultsLIST(new QListWidget)
    , SearchResultsLBL(
          kit::Text("SearchResultsLBL", "Please select one of the TQX7716s found above."))
    , SearchInsLBL(kit::Text("SearchInsLBL", "Click 'Next' to Continue"))
    , SearchNotesLBL(kit::Text("SearchNotesLBL", {})) {
    setObjectName("SearchResultsPanel");
    SearchResultsLIST->setObjectName("SearchResultsLIST");
    SearchResultsLIST->setAccessibleName("TQX7716s found");
    SearchResultsLIST->setToolTip("A double click on a row takes that chip");
    SearchResultsLIST->setFont(look::NumbersFont());
    SearchResultsLIST->setItemDelegate(new SentenceDelegate(SearchResultsLIST));
    SearchResultsLIST->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    look::SetInk(*SearchNotesLBL, look::QuietInk);
    SearchNotesLBL->hide();

    QVBoxLayout* page = PageLayout(this);
    page->addWidget(Heading("SearchResultsDescLBL", "Search Results"));
    page->addWidget(SearchResultsLIST, 1);
    page->addWidget(SearchResultsLBL);
    page->addWidget(SearchNotesLBL);
    page->addWidget(SearchInsLBL);
}

void ResultsPage::ShowRows(const std::vector<ResultRow>& rows, const QStringList& notes) {
    SearchResultsLIST->clear();
    for (const ResultRow& row : rows) {
        auto* item = new QListWidgetItem(row.Text, SearchResultsLIST);
        item->setData(Qt::AccessibleTextRole, SentenceOfRow(row.Text));
        item->setToolTip(row.Remark);
    }
    SearchResultsLIST->setCurrentRow(0);
    if (rows.empty()) {
        SearchResultsLBL->setText(
            "Sorry, no TQX7716s were found. Please check all connections and try again");
        SearchInsLBL->setText("Click Back to continue...");
    } else {
        SearchResultsLBL->setText("Please select one of the TQX7716s found above.");
        SearchInsLBL->setText("Click 'Finish' to Continue");
    }
    SearchNotesLBL->setText(notes.join('\n'));
    SearchNotesLBL->setVisible(!notes.isEmpty());
}

void ResultsPage::Clear() {
    SearchResultsLIST->clear();
}

int ResultsPage::SelectedRow() const {
    return SearchResultsLIST->currentRow();
}

QString ResultsPage::SelectedText() const {
    const QListWidgetItem* item = SearchResultsLIST->currentItem();
    return item ? item->text() : QString();
}

} // namespace tqx
