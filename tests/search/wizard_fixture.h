#pragma once

#include "support/answered_dialogs.h"
#include "support/build_info.h"
#include "support/hands.h"
#include "support/recorded_bench.h"

#include <search/init_form.h>
#include <search/main_form_door.h>

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tqx::test {

/// A wizard on the recording link. What it does to the main window is written down among the
/// link's calls, so that the order of both is seen.
class WizardTest : public testing::Test, public MainFormDoor, protected Hands {
protected:
    RecordedBench recorded;
    RecordingLink& link = recorded.Link;
    BusCell& cell = recorded.Bench.Bus.BusCell;
    AnsweredDialogs dialogs;
    std::string build = "2222";
    std::unique_ptr<InitForm> wizard;

    /// Chips at these addresses, in the form of their medium.
    void ChipsAt(std::vector<std::uint8_t> addresses) {
        link.Registers[0x16] = 0x41;
        addresses.push_back(0x01); // an empty list would let every address answer
        link.Answering = std::move(addresses);
    }

    void Make() {
        wizard = std::make_unique<InitForm>(
            recorded.Bench, [this] { return std::make_unique<BuildInfo>(build); }, dialogs, *this);
    }

    void Open() {
        Make();
        wizard->show();
        link.Take();
    }

    QWidget& Window() override { return *wizard; }

    void Check(const char* box, bool checked) {
        if (Find<QCheckBox>(box).isChecked() != checked) {
            QTest::keyClick(&Find<QCheckBox>(box), Qt::Key_Space);
        }
    }

    /// Runs the wizard from the start to the end of a search.
    void Search(bool printerPort, bool smbus) {
        Open();
        Click("NextCMD");
        Check("PPCheck", printerPort);
        Check("SMBusCheck", smbus);
        Click("NextCMD");
    }

    QStringList Rows() {
        QStringList rows;
        const auto& list = Find<QListWidget>("SearchResultsLIST");
        for (int row = 0; row < list.count(); ++row) {
            rows << list.item(row)->text();
        }
        return rows;
    }

    /// The page that is in view, and the buttons that can be pressed: "2 Back Next Cancel".
    std::string State() {
        std::string state;
        int page = 0;
        for (const char* panel :
             {"WelcomePanel", "SeclectComsMediumPanel", "SearchingPanel", "SearchResultsPanel"}) {
            ++page;
            if (!Find<QWidget>(panel).isHidden()) {
                state += std::to_string(page);
            }
        }
        for (const std::string button : {"Back", "Next", "Finish", "Cancel"}) {
            if (Find<QPushButton>((button + "CMD").c_str()).isEnabled()) {
                state += " " + button;
            }
        }
        return state;
    }

    void Load() override { Note("Load"); }

    void Show() override { Note("Show"); }

    void Unload() override { Note("Unload"); }

    void EndApplication() override { Note("EndApplication"); }

private:
    void Note(const char* step) {
        link.Calls.push_back(std::string("MainForm.") + step);
        if (link.FailOn == link.Calls.back()) {
            throw LinkError("the load failed", "as asked", "");
        }
    }
};

} // namespace tqx::test
