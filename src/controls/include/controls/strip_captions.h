#pragma once

namespace tqx::strip {

/// The captions of a strip chart by their numbers.
/// @{
inline constexpr int TitleCaption = 0;
inline constexpr int TimeCaption = 1;        ///< "Time=", which cannot be changed
inline constexpr int FirstLegendCaption = 2; ///< of variable 0; the others' follow in their order
inline constexpr int CaptionCount = 19;
/// @}

} // namespace tqx::strip
