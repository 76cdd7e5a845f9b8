#pragma once

#include "search/media_scan.h"

#include <link/link_server.h>

#include <QDialog>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QPushButton;
class QStackedWidget;

namespace tqx {

struct Bench;
class MainFormDoor;
class MediumPage;
class ResultsPage;
class SearchingPage;
class SystemDialogs;
class WelcomePage;
struct WizardButtons;

using OSVersionInfoFactory = std::function<std::unique_ptr<OSVersionInfo>()>;

/// The search wizard, on which the application starts: welcome, choice of the medium, search,
/// results. Finish sets the link up for the chip that the user picked and hands over to MainForm.
///
/// Making it is its load, which takes the first call on the link; a failure there is told in a
/// message box and the wizard stays as far as it got. After a search that failed the wizard stands
/// on the choice of the medium again.
class InitForm : public QDialog {
    Q_OBJECT

public:
    /// Everything referred to must outlive the wizard.
    InitForm(Bench& bench, const OSVersionInfoFactory& osVersion, SystemDialogs& dialogs,
             MainFormDoor& mainForm, QWidget* parent = nullptr);
    ~InitForm() override;

    /// The page on view, 1 to 4.
    int CurrentPage() const { return m_currentPage; }

    /// Escape: Cancel, as far as it can be pressed.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeWindow();
    std::array<QPushButton*, 4> MakeButtons();
    void ConnectControls();
    void Load(const OSVersionInfoFactory& osVersion);
    void ApplyBuildRules();

    void ShowPage(int page);
    void EnableButtons(const WizardButtons& buttons);
    void DispatchPage();

    void StartSearch();
    void EndWaiting();
    void ShowSearchResults();
    void ReturnToMedia();

    void Finish();
    void FinishOnPrinterPort(int number, std::uint8_t address);
    void FinishOnSMBus(std::uint8_t address);
    void Skip();
    void Cancel();

    Bench& m_bench;
    SystemDialogs& m_dialogs;
    MainFormDoor& m_mainForm;
    std::unique_ptr<OSVersionInfo> m_osVersion;
    MediaScan m_scan;
    /// The address of each row of the list, in row order.
    std::vector<std::uint8_t> m_rowAddress;

    int m_currentPage = 1;
    bool m_movingForward = false;
    bool m_finished = false;

    QStackedWidget* m_pages = nullptr;
    WelcomePage* m_welcome = nullptr;
    MediumPage* m_medium = nullptr;
    SearchingPage* m_searching = nullptr;
    ResultsPage* m_results = nullptr;
    /// The pages in their order, the first one being number 1.
    std::vector<QWidget*> m_pageOf;

    QPushButton* m_back = nullptr;
    QPushButton* m_next = nullptr;
    QPushButton* m_finish = nullptr;
    QPushButton* m_cancel = nullptr;
};

} // namespace tqx
