#include "core/home_file.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>

#include "core/file_write.h"
#include "core/text_format.h"

namespace astel {

namespace {

static_assert(std::endian::native == std::endian::little, "the file layout is little-endian");

enum Tag : std::int16_t {
  kInt16 = 2,
  kInt32 = 3,
  kSingle = 4,
  kDouble = 5,
  kDate = 7,
  kText = 8,
  kBoolean = 11,
};

constexpr int kReservedValues = 9;
constexpr int kPaddingBytes = 512;

class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  template <typename T>
  std::optional<T> Raw() {
    if (bytes_.size() - pos_ < sizeof(T)) return std::nullopt;
    T value;
    std::memcpy(&value, bytes_.data() + pos_, sizeof(T));
    pos_ += sizeof(T);
    return value;
  }

  // Any tag is accepted for any field and turned into a number.
  std::optional<double> Tagged() {
    auto tag = Raw<std::int16_t>();
    if (!tag) return std::nullopt;
    switch (*tag) {
      case kInt16:
      case kBoolean: {
        auto v = Raw<std::int16_t>();
        return v ? std::optional<double>(*v) : std::nullopt;
      }
      case kInt32: {
        auto v = Raw<std::int32_t>();
        return v ? std::optional<double>(*v) : std::nullopt;
      }
      case kSingle: {
        auto v = Raw<float>();
        return v ? std::optional<double>(*v) : std::nullopt;
      }
      case kDouble:
      case kDate:
        return Raw<double>();
      case kText: {
        auto length = Raw<std::uint16_t>();
        if (!length || bytes_.size() - pos_ < *length) return std::nullopt;
        double v = LeadingNumber(bytes_.substr(pos_, *length));
        pos_ += *length;
        return v;
      }
      default:
        return std::nullopt;
    }
  }

 private:
  std::string_view bytes_;
  std::size_t pos_ = 0;
};

class Writer {
 public:
  template <typename T>
  void Raw(T value) {
    char buffer[sizeof(T)];
    std::memcpy(buffer, &value, sizeof(T));
    bytes_.append(buffer, sizeof(T));
  }
  void Int16(double v) {
    Raw<std::int16_t>(kInt16);
    Raw<std::int16_t>(static_cast<std::int16_t>(v));
  }
  void Double(double v) {
    Raw<std::int16_t>(kDouble);
    Raw<double>(v);
  }
  void Boolean(bool v) {
    Raw<std::int16_t>(kBoolean);
    Raw<std::int16_t>(v ? -1 : 0);
  }
  // Each value goes with the narrowest tag that holds it, as the old writer's variants did.
  void Number(double v) {
    if (v == std::trunc(v) && v >= std::numeric_limits<std::int16_t>::min() &&
        v <= std::numeric_limits<std::int16_t>::max()) {
      Int16(v);
    } else if (v == std::trunc(v) && v >= std::numeric_limits<std::int32_t>::min() &&
               v <= std::numeric_limits<std::int32_t>::max()) {
      Raw<std::int16_t>(kInt32);
      Raw<std::int32_t>(static_cast<std::int32_t>(v));
    } else if (static_cast<double>(static_cast<float>(v)) == v) {
      Raw<std::int16_t>(kSingle);
      Raw<float>(static_cast<float>(v));
    } else {
      Double(v);
    }
  }
  std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

}  // namespace

std::optional<HomeFileRecord> ParseHomeFile(std::string_view bytes) {
  Reader in(bytes);
  HomeFileRecord r;
  auto latitude = in.Raw<double>();
  auto longitude = in.Raw<double>();
  auto gmtOffset = in.Tagged();
  auto back = in.Tagged();
  auto fore = in.Tagged();
  auto scopeCode = in.Tagged();
  auto comPort = in.Tagged();
  auto useStored = in.Raw<std::int16_t>();
  auto locationOption = in.Tagged();
  auto gpsOnly = in.Tagged();
  auto version = in.Tagged();
  if (!version) return std::nullopt;  // every earlier read failed too, or this one did
  if (!latitude || !longitude || !gmtOffset || !back || !fore || !scopeCode || !comPort ||
      !useStored || !locationOption || !gpsOnly) {
    return std::nullopt;
  }
  r.homeLatitude = *latitude;
  r.homeLongitude = *longitude;
  r.gmtOffset = *gmtOffset;
  r.backColor = *back;
  r.foreColor = *fore;
  r.scopeCode = static_cast<int>(*scopeCode);
  r.comPort = static_cast<int>(*comPort);
  r.useStoredGmtOffset = *useStored != 0;
  r.locationOption = *locationOption != 0;
  r.gpsLocationOnly = *gpsOnly != 0;
  r.version = *version;
  if (!std::isfinite(r.homeLatitude) || !std::isfinite(r.homeLongitude) ||
      std::fabs(r.homeLatitude) > 1.6 || std::fabs(r.homeLongitude) > 3.2 ||
      !std::isfinite(r.gmtOffset) || std::fabs(r.gmtOffset) > 24) {
    return std::nullopt;  // not a home file: no place on Earth is there
  }
  if (!r.IsOldLayout()) {
    auto gps = in.Tagged();
    if (!gps) return std::nullopt;
    r.scopeHasGps = *gps != 0;
  }
  auto firstStart = in.Tagged();
  if (!firstStart) return std::nullopt;
  r.firstStartDate = *firstStart;
  return r;
}

std::string SerializeHomeFile(const HomeFileRecord& r) {
  Writer out;
  out.Raw<double>(r.homeLatitude);
  out.Raw<double>(r.homeLongitude);
  out.Number(r.gmtOffset);
  out.Number(r.backColor);
  out.Number(r.foreColor);
  out.Int16(r.scopeCode);
  out.Int16(r.comPort);
  out.Raw<std::int16_t>(r.useStoredGmtOffset ? -1 : 0);
  out.Boolean(r.locationOption);
  out.Boolean(r.gpsLocationOnly);
  out.Double(kHomeFileVersion);
  out.Boolean(r.scopeHasGps);
  out.Double(r.firstStartDate);
  for (int i = 0; i < kReservedValues; ++i)
    out.Int16(0);
  std::string bytes = out.Take();
  bytes.append(kPaddingBytes, '\0');
  return bytes;
}

std::optional<HomeFileRecord> LoadHomeFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (file.bad()) return std::nullopt;
  return ParseHomeFile(bytes);
}

std::string SaveHomeFile(const std::string& path, const HomeFileRecord& record) {
  return ReplaceFile(path, SerializeHomeFile(record));
}

std::string HomeFileNameWithExtension(std::string name) {
  if (name.size() >= 4 && ToUpperLatin1(name.substr(name.size() - 4)) == ".HOM") return name;
  if (name.size() >= 4 && name[name.size() - 4] == '.')
    return name.substr(0, name.size() - 4) + ".HOM";
  return name + ".HOM";
}

HomeFileRecord HomeFileRecordFromState(const SharedState& s) {
  HomeFileRecord r;
  r.homeLatitude = s.place.homeLatitude;
  r.homeLongitude = s.place.homeLongitude;
  r.gmtOffset = s.place.gmtOffset;
  r.backColor = s.display.nightVision ? s.display.dayBackColor : s.display.backColor;
  r.foreColor = s.display.nightVision ? s.display.dayForeColor : s.display.foreColor;
  r.scopeCode = s.telescope.scopeCode;
  r.comPort = s.telescope.comPort;
  r.useStoredGmtOffset = s.place.useStoredGmtOffset;
  r.locationOption = s.place.locationOption;
  r.gpsLocationOnly = s.telescope.gpsLocationOnly;
  r.version = kHomeFileVersion;
  r.scopeHasGps = s.telescope.scopeHasGps;
  r.firstStartDate = s.time.firstStartDate;
  return r;
}

}  // namespace astel
