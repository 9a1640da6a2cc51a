#pragma once

// What the modules around the libraries export, under C names. Each of these functions returns an
// object that lives as long as the process.
namespace mavrin2::kestrin {

inline constexpr char kFourierEntry[] = "Mavrin2KestrinFourier";
inline constexpr char kRateConverterEntry[] = "Mavrin2KestrinRateConverter";

// Before the definition of each of these functions.
#define MAVRIN2_KESTRIN_EXPORT extern "C" __attribute__((visibility("default")))

}  // namespace mavrin2::kestrin
