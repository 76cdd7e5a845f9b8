#pragma once

#include <QString>

#include <string_view>

namespace tqx {

/// The text under the gauge: `reading` rounded to three decimals (ties to even) in its shortest
/// decimal form with a point, whatever the locale, then `suffix`. A reading that is not negative
/// has a blank where the minus would stand.
QString GaugeCaption(double reading, std::string_view suffix);

} // namespace tqx
