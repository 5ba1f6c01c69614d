// The GoTo commands of the four telescope families, as the exact bytes on the wire. Send-only in
// every family: whatever the telescope answers is discarded by the next exchange's flush.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/shared_state.h"

namespace astel {

// A position on the Celestron 65,536-step circle, split into two bytes. The high byte truncates
// and the low byte rounds (halves to even); a low byte that rounds up to 256 carries into the
// high byte, and a full circle (65,536 steps, e.g. a declination of -0 deg 0 min) wraps to 0, so
// every command keeps its length and every byte fits.
struct CircleBytes {
  std::uint8_t high = 0;
  std::uint8_t low = 0;
};
CircleBytes SplitCircleValue(double steps);

// True when the declination counts as non-negative: whole degrees 0 or more and a positive sign
// (so -0 deg 30 min is negative).
bool DeclinationIsNonNegative(const ObjectState& object);

// Right ascension in circle steps: minutes of arc times 3 x 1.011358 (65,536 steps for 21,600
// minutes of arc, with the literal factor the telescopes have always been sent).
double CelestronRaSteps(const ObjectState& object);
// Declination in circle steps; a negative declination takes its two's-complement place
// (21,600 minutes of arc less its size).
double CelestronDecSteps(const ObjectState& object);

// Type 1, NexStar GPS family and later hand controllers:
//   "R" RAhi RAlo "," DEChi DEClo, each byte two upper-case hex digits
//   e.g. R34AB,12CE (10 characters). The mount answers "#" (discarded).
std::string EncodeGotoNexStar(const ObjectState& object);

// Type 2, original NexStar 5/8: sent after the one-byte attention "?" (0x3F):
//   0x52 RAhi RAlo DEChi DEClo (5 raw bytes).
inline constexpr std::string_view kNexStarOriginalAttention = "?";
std::string EncodeGotoNexStarOriginal(const ObjectState& object);

// Type 3, original NexStar 60/80/114 and Tasco StarGuide:
//   0x52 RAhi RAlo 0x00 DEChi DEClo 0x00 (7 raw bytes).
std::string EncodeGotoStarGuide(const ObjectState& object);

// Type 4, LX200 and compatibles (a "#" first clears any half-received command):
//   "#:Sr HH:MM.T#"  e.g. #:Sr 05:34.5#  (13 characters); the mount answers "1" (discarded)
std::string EncodeLx200SetRa(const ObjectState& object);
//   "#:Sd sDD*MM#"   e.g. #:Sd -05*23#   (12 characters); answer "1" (discarded)
std::string EncodeLx200SetDec(const ObjectState& object);
//   "#:MS#" slew to the target (5 characters); answer "0" or an error text (discarded)
inline constexpr std::string_view kLx200Slew = "#:MS#";

// One write of a GoTo: a pause, then the bytes, whose written count must equal `expectedCount`.
// Empty bytes stand for a pause alone.
struct Transfer {
  int pauseBeforeMs = 0;
  std::string bytes;
  int expectedCount = 0;
};

// The whole GoTo of a telescope type, in order. Types below 4 are the Celestron family: type 1
// sends its ten characters one a write, each after 5 ms (the hand controller needs the pacing);
// type 0 matches no form and only pauses. Types 4 and up get the LX200 commands.
std::vector<Transfer> GotoTransfers(int scopeType, const ObjectState& object);

}  // namespace astel
