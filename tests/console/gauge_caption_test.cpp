#include "control_centre/gauge_caption.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace tqx {
namespace {

struct Case {
    double Reading;
    const char* Suffix;
    const char* Caption;
};

class GaugeCaptions : public testing::TestWithParam<Case> {};

TEST_P(GaugeCaptions, AreTheShortestTextOfTheRoundedReading) {
    const Case& c = GetParam();
    QLocale::setDefault(QLocale(QLocale::German)); // a comma and a thousands point
    EXPECT_EQ(GaugeCaption(c.Reading, c.Suffix), QString::fromLatin1(c.Caption));
    QLocale::setDefault(QLocale::c());
}

INSTANTIATE_TEST_SUITE_P(
    All, GaugeCaptions,
    testing::Values(Case{31, " C", " 31 C"}, Case{-5, " C", "-5 C"}, Case{0, " C", " 0 C"},
                    Case{3750, " RPM", " 3750 RPM"}, Case{1.498F, " V", " 1.498 V"},
                    Case{5, " V", " 5 V"}, Case{-11.963F, " V", "-11.963 V"},
                    Case{0.1, " V", " 0.1 V"}, Case{100, " V", " 100 V"},
                    // halves go to the even third decimal
                    Case{0.0625, " V", " 0.062 V"}, Case{0.1875, " V", " 0.188 V"},
                    Case{-0.0625, " V", "-0.062 V"},
                    // what rounds to nothing has no sign
                    Case{-0.0004, " V", " 0 V"}, Case{1e15, "", " 1000000000000000"}));

} // namespace
} // namespace tqx
