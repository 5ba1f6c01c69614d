#include "scope/goto_encoding.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

#include "core/text_format.h"

namespace astel {

namespace {

constexpr double kArcminutesPerCircle = 21600;
constexpr int kPacingMs = 5;

std::string Hex2(std::uint8_t byte) {
  return fmt::format("{:02X}", byte);
}

std::string RawBytes(std::initializer_list<std::uint8_t> bytes) {
  std::string text;
  for (std::uint8_t b : bytes)
    text.push_back(static_cast<char>(b));
  return text;
}

// Minutes of arc to circle steps, multiplied in the order the factor has always been written.
double ArcminutesToSteps(double arcminutes) {
  return arcminutes * 3 * 1.011358;
}

}  // namespace

CircleBytes SplitCircleValue(double steps) {
  double high = std::floor(steps / 256);
  double low = std::nearbyint(steps - high * 256);  // the default rounding: halves to even
  if (low >= 256) {
    low -= 256;
    high += 1;
  }
  int wrappedHigh = static_cast<int>(high) % 256;
  if (wrappedHigh < 0) wrappedHigh += 256;
  return {static_cast<std::uint8_t>(wrappedHigh), static_cast<std::uint8_t>(low)};
}

bool DeclinationIsNonNegative(const ObjectState& object) {
  return object.objDecDegrees >= 0 && object.objDecSign > 0;
}

double CelestronRaSteps(const ObjectState& object) {
  return ArcminutesToSteps((object.objRaHours * 60 + object.objRaMinutes) * 15);
}

double CelestronDecSteps(const ObjectState& object) {
  double arcminutes = std::abs(object.objDecDegrees) * 60 + object.objDecMinutes;
  if (DeclinationIsNonNegative(object)) {
    return ArcminutesToSteps(object.objDecDegrees * 60 + object.objDecMinutes);
  }
  return ArcminutesToSteps(kArcminutesPerCircle - arcminutes);
}

std::string EncodeGotoNexStar(const ObjectState& object) {
  CircleBytes ra = SplitCircleValue(CelestronRaSteps(object));
  CircleBytes dec = SplitCircleValue(CelestronDecSteps(object));
  return "R" + Hex2(ra.high) + Hex2(ra.low) + "," + Hex2(dec.high) + Hex2(dec.low);
}

std::string EncodeGotoNexStarOriginal(const ObjectState& object) {
  CircleBytes ra = SplitCircleValue(CelestronRaSteps(object));
  CircleBytes dec = SplitCircleValue(CelestronDecSteps(object));
  return RawBytes({0x52, ra.high, ra.low, dec.high, dec.low});
}

std::string EncodeGotoStarGuide(const ObjectState& object) {
  CircleBytes ra = SplitCircleValue(CelestronRaSteps(object));
  CircleBytes dec = SplitCircleValue(CelestronDecSteps(object));
  return RawBytes({0x52, ra.high, ra.low, 0x00, dec.high, dec.low, 0x00});
}

std::string EncodeLx200SetRa(const ObjectState& object) {
  return CommaToPoint("#:Sr " + FormatFixed(object.objRaHours, "00") + ":" +
                      FormatFixed(object.objRaMinutes, "00.0") + "#");
}

std::string EncodeLx200SetDec(const ObjectState& object) {
  bool nonNegative = DeclinationIsNonNegative(object);
  return CommaToPoint(std::string("#:Sd ") + (nonNegative ? "+" : "-") +
                      FormatFixed(std::abs(object.objDecDegrees), "00") + "*" +
                      FormatFixed(object.objDecMinutes, "00") + "#");
}

std::vector<Transfer> GotoTransfers(int scopeType, const ObjectState& object) {
  if (scopeType >= 4) {
    return {{0, EncodeLx200SetRa(object), 13},
            {0, EncodeLx200SetDec(object), 12},
            {0, std::string(kLx200Slew), 5}};
  }
  std::vector<Transfer> transfers;
  if (scopeType == 2) transfers.push_back({0, std::string(kNexStarOriginalAttention), 1});
  transfers.push_back({kPacingMs, "", 0});
  switch (scopeType) {
    case 1:
      for (char c : EncodeGotoNexStar(object))
        transfers.push_back({kPacingMs, std::string(1, c), 1});
      break;
    case 2:
      transfers.push_back({0, EncodeGotoNexStarOriginal(object), 5});
      break;
    case 3:
      transfers.push_back({0, EncodeGotoStarGuide(object), 7});
      break;
    default:
      break;  // no GoTo telescope: nothing to send
  }
  return transfers;
}

}  // namespace astel
