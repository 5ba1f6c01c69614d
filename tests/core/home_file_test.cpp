#include "core/home_file.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "core/install_dir.h"
#include "tests/support/temp_dir.h"

namespace astel {
namespace {

// 16 raw bytes of place; gmtOffset, colours (65535 needs 32 bits), code and port; the raw 16-bit
// flag; two booleans; the version and GPS flag; the first-start date. Nine reserved values and
// 512 bytes of padding follow.
constexpr std::size_t kFirstStartEnd = 16 + 4 + 4 + 6 + 4 + 4 + 2 + 4 + 4 + 10 + 4 + 10;

HomeFileRecord SampleRecord() {
  HomeFileRecord r;
  r.homeLatitude = 0.7114, r.homeLongitude = -0.1, r.gmtOffset = 5;
  r.backColor = 192, r.foreColor = 65535, r.scopeCode = 401, r.comPort = 2;
  r.useStoredGmtOffset = r.locationOption = r.scopeHasGps = true;
  r.firstStartDate = 2461366.5;
  return r;
}

template <typename T>
T At(const std::string& bytes, std::size_t offset) {
  T v;
  std::memcpy(&v, bytes.data() + offset, sizeof v);
  return v;
}

TEST(HomeFile, ByteLayoutAndAByteExactRoundTrip) {
  std::string bytes = SerializeHomeFile(SampleRecord());
  ASSERT_EQ(bytes.size(), kFirstStartEnd + 9 * 4 + 512);
  EXPECT_TRUE(At<double>(bytes, 0) == 0.7114 && At<double>(bytes, 8) == -0.1);
  // gmtOffset 5 as a 16-bit integer (tag 2), foreColor 65535 as a 32-bit one (tag 3), the raw
  // flag, locationOption as a boolean (tag 11), the version as a double (tag 5).
  const std::pair<std::size_t, std::int16_t> shorts[] = {{16, 2},  {18, 5},  {24, 3}, {38, -1},
                                                         {40, 11}, {42, -1}, {48, 5}};
  for (auto [offset, value] : shorts)
    EXPECT_EQ(At<std::int16_t>(bytes, offset), value) << "16-bit value at " << offset;
  EXPECT_TRUE(At<std::int32_t>(bytes, 26) == 65535 && At<double>(bytes, 50) == 6.11);
  for (int i = 0; i < 9; ++i)
    EXPECT_EQ(At<std::int32_t>(bytes, kFirstStartEnd + 4 * i), 2) << "reserved value " << i;
  EXPECT_EQ(bytes.substr(bytes.size() - 512), std::string(512, '\0'));

  EXPECT_EQ(SerializeHomeFile(ParseHomeFile(bytes).value_or(HomeFileRecord{})), bytes)
      << "every value survives the round trip";

  HomeFileRecord halfHour = SampleRecord();  // a half-hour zone needs a single
  halfHour.gmtOffset = -5.5;
  bytes = SerializeHomeFile(halfHour);
  EXPECT_TRUE(At<std::int16_t>(bytes, 16) == 4 && At<float>(bytes, 18) == -5.5f);
}

TEST(HomeFile, ReadsEveryTagAndTheOlderLayout) {
  // A hand-built file whose fields use every tag: int32, single, date, text, boolean, double.
  std::string b;
  auto raw = [&](auto v) { b.append(reinterpret_cast<const char*>(&v), sizeof v); };
  using I16 = std::int16_t;
  raw(0.5), raw(1.0), raw(I16{4}), raw(-3.5f);          // the place; gmtOffset as single
  raw(I16{3}), raw(std::int32_t{16777215});             // a white background
  raw(I16{8}), raw(std::uint16_t{3}), b += "255";       // foreColor as text
  raw(I16{7}), raw(402.0), raw(I16{11}), raw(I16{-1});  // scopeCode as a date, comPort as -1
  // The raw flag, then two booleans stored as numbers.
  raw(I16{0}), raw(I16{2}), raw(I16{0}), raw(I16{3}), raw(std::int32_t{1});
  raw(I16{4}), raw(6.1f), raw(I16{11}), raw(I16{0});  // version as single, below 6.11; GPS
  raw(I16{2}), raw(I16{0});                           // first start never set, no reserved tail
  const auto mixed = ParseHomeFile(b);
  ASSERT_TRUE(mixed);
  EXPECT_TRUE(mixed->gmtOffset == -3.5 && mixed->backColor == 16777215 && mixed->foreColor == 255);
  EXPECT_TRUE(mixed->scopeCode == 402 && mixed->comPort == -1 && mixed->gpsLocationOnly);
  EXPECT_TRUE(mixed->version < kHomeFileVersion && mixed->firstStartDate == 0);

  // A bare family number is the older layout: its GPS flag's value is read as the date.
  HomeFileRecord old = SampleRecord();
  old.scopeCode = 3;
  const auto parsed = ParseHomeFile(SerializeHomeFile(old));
  EXPECT_TRUE(parsed && parsed->IsOldLayout() && !parsed->scopeHasGps &&
              parsed->firstStartDate == -1);
}

TEST(HomeFile, DamagedFilesAreRefusedWholeAndSavingIsAtomic) {
  const std::string good = SerializeHomeFile(SampleRecord());
  for (std::size_t cut = 0; cut < kFirstStartEnd; ++cut)
    EXPECT_FALSE(ParseHomeFile(good.substr(0, cut))) << "cut at " << cut;
  EXPECT_TRUE(ParseHomeFile(good.substr(0, kFirstStartEnd)));
  std::string badTag = good;
  badTag[16] = 9;  // no such tag
  EXPECT_FALSE(ParseHomeFile(badTag));

  testing::TempDir dir;
  const std::string path = dir.path() + "/SITE.HOM";
  HomeFileRecord changed = SampleRecord();
  EXPECT_EQ(SaveHomeFile(path, changed), "");
  changed.comPort = 3;
  EXPECT_EQ(SaveHomeFile(path, changed), "") << "replaces the file";
  EXPECT_EQ(SerializeHomeFile(LoadHomeFile(path).value_or(HomeFileRecord{})),
            SerializeHomeFile(changed));
  EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
  EXPECT_NE(SaveHomeFile(dir.path() + "/missing/SITE.HOM", changed), "");
  EXPECT_EQ(HomeFileNameWithExtension("site.hom") + HomeFileNameWithExtension("my.site"),
            "site.hommy.site.HOM");
}

std::string ReadAll(const std::string& path) {
  std::ifstream in(path);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(InstallDir, EnvironmentProgramFolderOrAFilledUserFolder) {
  testing::TempDir tmp;
  const std::string exeDir = tmp.path() + "/bin", shipped = tmp.path() + "/share";
  std::filesystem::create_directories(exeDir), std::filesystem::create_directories(shipped);
  std::ofstream(shipped + "/FULL.OBC") << "shipped";

  InstallDirInputs in{tmp.path() + "/mine", exeDir, tmp.path() + "/data", {shipped}};
  EXPECT_EQ(ResolveInstallDir(in).dir, tmp.path() + "/mine/");
  in.astelHome.clear();
  const InstallDirChoice first = ResolveInstallDir(in);
  EXPECT_EQ(first.dir + "|" + first.error, tmp.path() + "/data/astel/|");
  EXPECT_EQ(ReadAll(first.dir + "FULL.OBC"), "shipped");
  // An observer's own files survive a later start.
  std::ofstream(first.dir + "FULL.OBC") << "with my objects";
  ResolveInstallDir(in);
  EXPECT_EQ(ReadAll(first.dir + "FULL.OBC"), "with my objects");

  std::ofstream(exeDir + "/ASTEL.HOM") << "beside the program";
  EXPECT_EQ(ResolveInstallDir(in).dir, exeDir + "/");
}

}  // namespace
}  // namespace astel
