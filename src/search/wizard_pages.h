#pragma once

#include "search/media_scan.h"

#include <QWidget>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

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

    QPushButton* const Skip;
};

/// The build number that the text of the operating system begins with; 0 where there is none.
int BuildOf(std::string_view text);

/// True on the systems on which the machine's own SMBus can be reached.
constexpr bool BuildReachesSMBus(int build) {
    constexpr std::array Reaching{950, 1111, 1998, 2222, 3000};
    return std::ranges::find(Reaching, build) != Reaching.end();
}

/// True on the systems that have no USB.
constexpr bool BuildLacksUSB(int build) {
    return build == 950 || build == 1111;
}

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
    QCheckBox* const m_printerPort;
    QCheckBox* const m_smbus;
    QLabel* const m_smbusAdvice;
    QLineEdit* const m_smbusBase;
    QCheckBox* const m_usb;
    QLabel* const m_usbAdvice;
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
    QProgressBar* const m_progress;
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

    QListWidget* const List;

private:
    QLabel* const m_result;
    QLabel* const m_instruction;
    QLabel* const m_notes;
};

/// The picture at the side of the wizard: a chip on a bus. Decoration only.
class WizardPicture : public QWidget {
public:
    explicit WizardPicture(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tqx
