#pragma once

#include <string>

namespace tqx {

/// `value` in hexadecimal, in capitals without leading zeros: "E6", "378".
std::string HexText(unsigned value);

/// `value` with at most three decimals, and no more than it needs: "11.985", "31".
std::string NumberOf(double value);

} // namespace tqx
