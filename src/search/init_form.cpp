#include "search/init_form.h"

#include "result_rows.h"
#include "search/main_form_door.h"
#include "wizard_pages.h"

#include <controls/factories.h>
#include <controls/look.h>
#include <controls/system_dialogs.h>
#include <device/bench.h>

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFrame>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace tqx {

/// Which of the wizard's buttons can be pressed.
struct WizardButtons {
    bool Back;
    bool Next;
    bool Finish;
    bool Cancel;
};

namespace {

constexpr int WelcomeAt = 1;
constexpr int MediumAt = 2;
constexpr int SearchingAt = 3;
constexpr int ResultsAt = 4;

constexpr WizardButtons OnWelcome{.Back = false, .Next = true, .Finish = false, .Cancel = true};
constexpr WizardButtons OnMedium{.Back = true, .Next = true, .Finish = false, .Cancel = true};
constexpr WizardButtons OnSearching{.Back = false, .Next = false, .Finish = false, .Cancel = false};
constexpr WizardButtons OnResults{.Back = true, .Next = false, .Finish = true, .Cancel = true};
constexpr WizardButtons OnNoResults{.Back = true, .Next = false, .Finish = false, .Cancel = true};

} // namespace

InitForm::InitForm(Bench& bench, const OSVersionInfoFactory& osVersion, SystemDialogs& dialogs,
                   MainFormDoor& mainForm, QWidget* parent)
    : QDialog(parent)
    , m_bench(bench)
    , m_dialogs(dialogs)
    , m_mainForm(mainForm)
    , m_scan(bench.Link) {
    MakeWindow();
    ConnectControls();
    Load(osVersion);
}

InitForm::~InitForm() = default;

void InitForm::MakeWindow() {
    setObjectName("InitForm");
    setWindowTitle("TQX7716 Search Wizard");
    m_pages = new QStackedWidget;
    for (QWidget* page :
         std::initializer_list<QWidget*>{m_welcome = new WelcomePage, m_medium = new MediumPage,
         m_searching = new SearchingPage, m_results = new ResultsPage}) {
        page->setParent(m_pages);
        page->hide();
        m_pageOf.push_back(page);
    }
    auto* rule = new QFrame;
    rule->setFixedHeight(1);
    rule->setAutoFillBackground(true);
    rule->setPalette(QPalette(QColor(look::Rule)));

    auto* side = new QVBoxLayout;
    side->setContentsMargins(6 * look::Grid, 6 * look::Grid, 6 * look::Grid, 4 * look::Grid);
    side->setSpacing(4 * look::Grid);
    side->addWidget(m_pages, 1);
    side->addWidget(rule);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(2 * look::Grid);
    buttons->addStretch();
    for (QPushButton* button : MakeButtons()) {
        buttons->addWidget(button);
    }
    side->addLayout(buttons);

    auto* whole = new QHBoxLayout(this);
    whole->setContentsMargins({});
    whole->setSpacing(0);
    whole->addWidget(new WizardPicture);
    whole->addLayout(side, 1);
    resize(640, 440);
}

std::array<QPushButton*, 4> InitForm::MakeButtons() {
    m_back = kit::Button("BackCMD", "< Back", "Go back a page", "Alt+B");
    m_next = kit::Button("NextCMD", "Next >", "Go on", "Alt+N");
    m_finish = kit::Button("FinishCMD", "Finish", "Open the main window on this chip", "Alt+F");
    m_cancel = kit::Button("CancelCMD", "Cancel", "End the program", "Alt+C");
    const std::array buttons{m_back, m_next, m_finish, m_cancel};
    for (QPushButton* button : buttons) {
        button->setAutoDefault(true); // Enter presses the one that has the focus
    }
    return buttons;
}

void InitForm::ConnectControls() {
    const LinkFailures& failures = m_bench.Failures;
    connect(m_next, &QPushButton::clicked, this, OnLink(failures, [this] {
                m_movingForward = true;
                DispatchPage();
            }));
    connect(m_back, &QPushButton::clicked, this, [this] {
        m_movingForward = false;
        DispatchPage();
    });
    connect(m_finish, &QPushButton::clicked, this, OnLink(failures, [this] { Finish(); }));
    connect(m_cancel, &QPushButton::clicked, this, &InitForm::Cancel);
    connect(m_welcome->Skip, &QPushButton::clicked, this, OnLink(failures, [this] { Skip(); }));
    connect(m_results->List, &QListWidget::itemDoubleClicked, m_finish, &QPushButton::click);
}

void InitForm::Load(const OSVersionInfoFactory& osVersion) {
    ShowPage(WelcomeAt);
    EnableButtons(OnWelcome);
    try {
        m_osVersion = osVersion();
        m_bench.Link->PrinterPortLink().BoardBus().StartupOption(false);
        ApplyBuildRules();
    } catch (const std::exception&) {
        m_dialogs.Message(this, SystemDialogs::Icon::CriticalStop, "Error",
                          "Error in Init Form Load");
    }
}

void InitForm::ApplyBuildRules() {
    const int build = BuildOf(m_osVersion->BuildNumber());
    if (BuildReachesSMBus(build)) {
        m_medium->OfferSMBus(m_bench.Link->SMBusLink().BaseAddress());
    } else {
        m_medium->RefuseSMBus();
    }
    if (BuildLacksUSB(build)) {
        m_medium->RefuseUSB();
    }
}

/// A page joins the stack when it is first shown: what is not laid out does not delay the start.
void InitForm::ShowPage(int page) {
    m_currentPage = page;
    QWidget* shown = m_pageOf[static_cast<std::size_t>(page - 1)];
    if (m_pages->indexOf(shown) < 0) {
        m_pages->addWidget(shown);
    }
    m_pages->setCurrentWidget(shown);
}

void InitForm::EnableButtons(const WizardButtons& buttons) {
    m_back->setEnabled(buttons.Back);
    m_next->setEnabled(buttons.Next);
    m_finish->setEnabled(buttons.Finish);
    m_cancel->setEnabled(buttons.Cancel);
    for (QPushButton* natural : {m_next, m_finish, m_back}) {
        if (natural->isEnabled()) {
            natural->setDefault(true);
            natural->setFocus();
            return;
        }
    }
}

void InitForm::DispatchPage() {
    switch (m_currentPage) {
    case WelcomeAt:
        if (m_movingForward) {
            ShowPage(MediumAt);
            EnableButtons(OnMedium);
        }
        break;
    case MediumAt:
        if (m_movingForward) {
            StartSearch();
        } else {
            ShowPage(WelcomeAt);
            EnableButtons(OnWelcome);
        }
        break;
    case ResultsAt:
        if (!m_movingForward) {
            ReturnToMedia();
        }
        break;
    default:
        break;
    }
}

void InitForm::StartSearch() {
    const SearchMedia media = m_medium->Checked();
    if (media.Count() == 0) {
        m_dialogs.Message(this, SystemDialogs::Icon::Exclamation, "A problem was detected",
                          "Please select a search medium");
        return;
    }
    ShowPage(SearchingAt);
    m_searching->repaint();
    EnableButtons(OnSearching);
    setCursor(Qt::WaitCursor);
    try {
        m_mainForm.Load();
        m_scan.SearchAllMedia(media, {.Max = [this](int max) { m_searching->Max(max); },
                                      .Step = [this](int step) { m_searching->Step(step); }});
    } catch (...) {
        EndWaiting();
        ReturnToMedia();
        throw;
    }
    EndWaiting();
    EnableButtons(OnResults);
    ShowSearchResults();
    ShowPage(ResultsAt);
    m_searching->Rewind();
    if (!m_rowAddress.empty()) {
        m_results->List->setFocus();
    }
}

/// The scan has held all events up. What was clicked meanwhile was clicked on buttons that could
/// not be pressed: it comes in now, before they can, and not on the page that follows.
void InitForm::EndWaiting() {
    QCoreApplication::processEvents();
    unsetCursor();
}

void InitForm::ShowSearchResults() {
    const std::vector<ResultRow> rows = m_scan.ShowSearchResults();
    m_rowAddress.clear();
    for (const ResultRow& row : rows) {
        m_rowAddress.push_back(row.Address);
    }
    m_results->ShowRows(rows, m_scan.Notes());
    if (rows.empty()) {
        EnableButtons(OnNoResults);
    }
}

void InitForm::ReturnToMedia() {
    m_results->Clear();
    m_rowAddress.clear();
    m_scan.Forget();
    m_searching->Rewind();
    ShowPage(MediumAt);
    EnableButtons(OnMedium);
}

/// The row's own text tells the medium. A step that fails is passed over: the main window is to
/// come up, and says at its first transfer what the link still lacks.
void InitForm::Finish() {
    const RowTail tail = TailOfRow(m_results->SelectedText());
    const std::size_t row = static_cast<std::size_t>(m_results->SelectedRow());
    const std::uint8_t rowAddress = row < m_rowAddress.size() ? m_rowAddress[row] : 0;
    switch (tail.Medium) {
    case RowMedium::PrinterPort:
        FinishOnPrinterPort(tail.Number, rowAddress);
        break;
    case RowMedium::SMBus:
        FinishOnSMBus(tail.Address);
        break;
    case RowMedium::Foreign:
        m_mainForm.EndApplication();
        return;
    }
    m_finished = true;
    m_bench.Bus.BusCell.SlaveAddress = rowAddress;
    PassOver([this] { m_mainForm.Show(); });
    close();
}

void InitForm::FinishOnPrinterPort(int number, std::uint8_t address) {
    BusCell& cell = m_bench.Bus.BusCell;
    const std::size_t slot = static_cast<std::size_t>(number - 1);
    if (slot < m_scan.PrinterPortFinds().size()) {
        const PrinterPortFind& find = m_scan.PrinterPortFinds()[slot];
        PassOver([&] { m_bench.Link->PrinterPortLink().PortIndex(find.PortIndex); });
        PassOver([&] { m_bench.Link->PrinterPortLink().BoardBus().BoardMode(find.BoardMode); });
    }
    PassOver([&] { m_bench.Link->PrinterPortLink().BoardBus().SlaveAddress(address); });
    PassOver([&] { m_bench.Link->ActiveMedium(ActivePrinterPort); });
    cell.ComsMedium = ComsPrinterPort;
    PassOver([&] { cell.PortAddress = m_bench.Link->PrinterPortLink().BoardBus().PortAddress(); });
}

void InitForm::FinishOnSMBus(std::uint8_t address) {
    PassOver([&] { m_bench.Link->SMBusLink().SlaveAddress(address); });
    PassOver([&] { m_bench.Link->ActiveMedium(ActiveSMBus); });
    m_bench.Bus.BusCell.ComsMedium = ComsSMBus;
}

void InitForm::Skip() {
    m_mainForm.Load();
    m_bench.Coms.Skipped = true;
    m_mainForm.Show();
    hide();
}

void InitForm::Cancel() {
    m_mainForm.Unload();
    close();
}

void InitForm::reject() {
    m_cancel->click();
}

void InitForm::closeEvent(QCloseEvent* event) {
    event->accept();
    if (!m_finished) {
        m_mainForm.EndApplication();
    }
}

} // namespace tqx
