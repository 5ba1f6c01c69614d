// NMEA 0183 from a hand-held GPS receiver: a framer that cuts the received characters into
// sentences, and the decoder of the one sentence the program uses, $GPRMC.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "scope/place_fix.h"

namespace astel {

// Collects the characters from a "$" up to the carriage return (neither the carriage return nor
// the line feed after it belong to the sentence) and hands over the complete sentences that
// begin "$GPRMC," (exactly, in upper case); every other sentence is dropped.
class NmeaFramer {
 public:
  // One received character; a complete "$GPRMC," sentence when this character ended it.
  std::optional<std::string> Feed(char c);
  // The sentence last handed over was refused. The receivers' data is then read on from the
  // following sentence's "$" but that sentence is dropped as a whole; the one after it is used.
  void Refused();

 private:
  std::string sentence_;
  bool inSentence_ = false;
  bool refusedPending_ = false;    // waiting for the "$" of the sentence to drop
  bool droppingSentence_ = false;  // inside the dropped sentence
};

// A valid $GPRMC reading.
struct GpsFix {
  UtcDateTime utc;  // the sentence's date and time plus one second
  std::string latitudeDegreesText, latitudeMinutesText;  // "48", "07.038"
  char hemisphere = 'N';
  std::string longitudeDegreesText, longitudeMinutesText;  // "011", "31.000"
  char eastWest = 'E';
};

// $GPRMC,hhmmss.ss,A,ddmm.mmm,N,dddmm.mmm,W,speed,course,DDMMYY,variation,E*hh
//   e.g. $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W
//   -> 48 deg 7.038 min N, 11 deg 31.000 min E, 23 March 2005 (century from `yearText`, the year
//   the program holds), clock 12:35:20 UTC: one second is added for the time the sentence took
//   to arrive, and a sentence from the last second of a minute (59 s or more) is refused so that
//   the addition never carries. Refused as well: a status other than "A" (no fix), fields shorter
//   than their formats, a sentence cut short before the date, and a checksum "*hh" that does
//   not match (a sentence without one is taken as it is).
std::optional<GpsFix> ParseGprmc(std::string_view sentence, std::string_view yearText);

// The place of a fix, in the form that ApplyPlaceFix takes.
PlaceFix PlaceOfGpsFix(const GpsFix& fix);

}  // namespace astel
