#include "controls/percent_bar.h"

#include <algorithm>

namespace tqx {

PercentBar::PercentBar(QWidget* parent)
    : QProgressBar(parent) {
    // With %p the base class draws again only when a whole percent has passed; the text has tenths.
    setFormat(QStringLiteral("%v"));
    setRange(0, 100);
    setValue(0);
}

void PercentBar::StandAt(int steps) {
    // The base class would draw every step at once; this way the steps between two rounds of the
    // event loop are drawn together.
    setUpdatesEnabled(false);
    setValue(std::clamp(steps, 0, maximum()));
    setUpdatesEnabled(true);
}

void PercentBar::EndAt(int steps) {
    setRange(0, std::max(steps, 1));
}

QString PercentBar::text() const {
    return QString::asprintf("%0.1f %%", 100.0 * value() / maximum());
}

} // namespace tqx
