#pragma once

#include "controls/strip_chart.h"
#include "controls/system_dialogs.h"
#include "strip_chart/actions.h"
#include "strip_chart/hand.h"

#include <QBasicTimer>

class QToolButton;

namespace tqx {

struct StripChart::Parts {
    explicit Parts(StripChart& chart)
        : Commands(chart) {}

    strip::Model Model;
    strip::Layers Layers;
    strip::Hand Hand{Model, Layers};
    strip::Commands Commands;
    strip::Clock Clock = strip::Clock::Machine();
    DesktopDialogs DesktopsOwn;
    SystemDialogs* Dialogs = &DesktopsOwn;
    QToolButton* FreezeButton = nullptr;
    QToolButton* LiveButton = nullptr;
    QToolButton* MenuButton = nullptr;
    QBasicTimer Frames;
    bool NewSamples = false;
    QString ToldState; ///< what screen readers were told last
    strip::Time WallNotedAt = 0;
    double YFloor = 0;
    double YLow = 0;
    double YCeiling = 100;
    double YHigh = 100;
    int StripSetting24 = 0;
    int CaptionIndex = 0;
    int VariableIndex = 0;

    strip::Caption* AddressedCaption() {
        const bool any = CaptionIndex >= 0 && CaptionIndex < strip::CaptionCount;
        return any ? &Model.Captions[static_cast<std::size_t>(CaptionIndex)] : nullptr;
    }

    /// Notes what the wall clock says, at most once a second. Where moments have other names then,
    /// all that shows them is drawn anew.
    void NoteWall();
};

} // namespace tqx
