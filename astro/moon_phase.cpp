#include "astro/moon_phase.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

void UpdateMoonPhase(ObjectState& o) {
  std::string text = PadRight(o.elongationText, 12);
  double e = o.moonLongitude - o.sunLongitude;
  text.replace(3, 9, "d Evening");
  if (e < 0) e += 360;
  double a = e;
  if (a > 180) {
    a = 360 - a;
    text.replace(3, 9, "d Morning");
  }
  if (a - std::floor(a) >= 0.5) a += 1;
  o.elongationDegreesText = NumberText(std::floor(a));
  std::string degrees = "   " + o.elongationDegreesText;
  text.replace(0, 3, degrees.substr(degrees.size() - 3));
  text[3] = kDegreeSign;
  o.elongationText = text;
  o.elongationLabel = text;

  // Half-open ranges in this order; New and Full are 50 degrees wide, the quarters 50, the
  // crescents and gibbous phases 40. A value of 360 or more matches none and keeps the old name.
  struct Range {
    double from, below;
    const char* name;
  };
  static constexpr Range kPhases[] = {
      {0, 25, "  New   "},    {25, 65, "Wax Cres"},   {65, 115, "1st  Qtr"},
      {115, 155, "Wax Gibb"}, {155, 205, "  Full  "}, {205, 245, "Wan Gibb"},
      {245, 295, "Last Qtr"}, {295, 335, "Wan Cres"}, {335, 360, "  New   "},
  };
  for (const Range& r : kPhases) {
    if (e >= r.from && e < r.below) {
      o.moonPhaseName = r.name;
      break;
    }
  }
}

}  // namespace astel
