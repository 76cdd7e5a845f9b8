#include "strip_chart/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tqx::strip {
namespace {

using testing::ElementsAre;

Model NewModel() {
    Model model;
    model.Zone = [](Time) { return 3600; };
    model.Wall.Note(0, 1'700'000'000 * Second);
    model.View.ColumnCount(600);
    return model;
}

std::vector<std::string> Lines(const Model& model, const Selection& selection) {
    std::vector<std::string> lines;
    for (const QByteArray& line : CsvText(model, selection).trimmed().split('\n')) {
        lines.push_back(line.toStdString());
    }
    return lines;
}

TEST(StripCsv, ATickIsARowAndAGapAnEmptyCell) {
    Model model = NewModel();
    model.Captions[FirstLegendCaption].Text = "+5V, \"main\"";
    model.Unit = "V";
    History& history = model.History;
    history.Add(0, 0, static_cast<double>(1.498F));
    history.Add(2, 1'000'000, 0.1);
    history.Add(0, 5'000'000, std::numeric_limits<double>::quiet_NaN());
    history.Add(2, 6'000'000, -11.5);
    history.Add(2, 11'000'000, std::numeric_limits<double>::infinity());
    history.Add(0, 2 * Second, 7);
    history.Add(2, 4 * Second, 8);
    model.View.Newest(history.Newest());
    EXPECT_THAT(Lines(model, SelectAll(model)),
                ElementsAre("Time,Seconds,Kind,\"+5V, \"\"main\"\" (V)\",Variable 2 (V)",
                            "2023-11-14T23:13:20.000+01:00,0.000000,sample,1.498,0.1",
                            "2023-11-14T23:13:20.005+01:00,0.005000,sample,,-11.5",
                            "2023-11-14T23:13:20.011+01:00,0.011000,sample,,inf",
                            "2023-11-14T23:13:22.000+01:00,2.000000,sample,7,",
                            "2023-11-14T23:13:24.000+01:00,4.000000,sample,,8"));
}

TEST(StripCsv, WhatIsNoLongerKeptSampleBySampleKeepsItsPeaks) {
    Model model = NewModel();
    constexpr int Count = 200'000;
    for (int i = 0; i < Count; ++i) {
        model.History.Add(0, i * Second / 100, i == 1234 ? 99.0 : i == 5678 ? -99.0 : 1.0);
    }
    const std::vector<std::string> lines = Lines(model, SelectAll(model));
    const auto ending = [&lines](const std::string& end) {
        return std::count_if(lines.begin(), lines.end(),
                             [&end](const std::string& line) { return line.ends_with(end); });
    };
    EXPECT_EQ(ending(",max,99"), 1);
    EXPECT_EQ(ending(",min,-99"), 1);
    EXPECT_EQ(ending(",sample,1"), static_cast<std::ptrdiff_t>(Trace::RawCapacity));
    EXPECT_LT(lines.size(), 120'000U);
}

} // namespace
} // namespace tqx::strip
