#pragma once

#include "search/media_scan.h"

#include <QWidget>

#include <cstdint>

class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace tqx {

/// Page 1, WelcomePanel.
class WelcomePage : public QWidget {
public:
    explicit WelcomePage(QWidget* parent = nullptr);

    QPushButton* const SkipCMD;
};

/// Page 2, SeclectComsMediumPanel: which media are to be searched.
class MediumPage : public QWidget {
public:
    explicit MediumPage(QWidget* parent = nullptr);

    /// The media that are checked.
    SearchMedia Checked() const;

    /// This system reaches its SMBus, whose host controller stands at `baseAddress`.
    void OfferSMBus(std::uint32_t baseAddress);
    /// This system does not reach its SMBus.
    void RefuseSMBus();
    /// This system has no USB.
    void RefuseUSB();

private:
    QCheckBox* const PPCheck;
    QCheckBox* const SMBusCheck;
    QLabel* const SMBusSearchDescLBL;
    QLineEdit* const SMBusBaseAddressTXT;
    QCheckBox* const USBCheck;
    QLabel* const USBSearchDescLBL;
};

/// Page 3, SearchingPanel: how far the search has come.
class SearchingPage : public QWidget {
public:
    explicit SearchingPage(QWidget* parent = nullptr);

    void Max(int max);
    /// A step on the way, which ends at Max; shown at once, since the scan serves no events.
    void Step(int step);
    /// Back at the start of the way.
    void Rewind();

private:
    QProgressBar* const SearchProgress;
};

/// Page 4, SearchResultsPanel: the chips found.
class ResultsPage : public QWidget {
public:
    explicit ResultsPage(QWidget* parent = nullptr);

    /// Fills the list and selects its first row. The page's texts tell whether there is a row;
    /// `notes` stand beneath them.
    void ShowRows(const std::vector<ResultRow>& rows, const QStringList& notes);
    void Clear();

    /// -1 and empty where no row is selected.
    int SelectedRow() const;
    QString SelectedText() const;

    QListWidget* const SearchResultsLIST;

private:
    QLabel* const SearchResultsLBL;
    QLabel* const SearchInsLBL;
    QLabel* const SearchNotesLBL;
};

} // namespace tqx
