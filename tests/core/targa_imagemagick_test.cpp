// Files written by ImageMagick, decoded here and compared pixel for pixel
// with ImageMagick's own reading of the same file. Needs the host's
// `convert`, so it runs in the native builds only.
#if !defined(_WIN32)

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

#include "data/targa.h"

namespace tw {
namespace {

// The command's standard output, or nothing if it failed.
std::vector<std::uint8_t> Capture(const std::string& command) {
  std::vector<std::uint8_t> out;
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return out;
  std::uint8_t chunk[65536];
  while (std::size_t got = std::fread(chunk, 1, sizeof chunk, pipe)) out.insert(out.end(), chunk, chunk + got);
  if (pclose(pipe) != 0) out.clear();
  return out;
}

TEST(TargaImageMagickTest, DecodesEveryPixelAsImageMagickReadsIt) {
  if (std::system("command -v convert >/dev/null 2>&1") != 0) GTEST_SKIP() << "ImageMagick is not installed";
  std::filesystem::path folder = std::filesystem::temp_directory_path() / ("tw_targa_" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  // Noise for raw packets, a flat rectangle for runs, an odd size so rows do
  // not line up with anything, and for 32 bits an alpha ramp from 255 to 0.
  const std::string picture =
      "-size 61x37 xc:'#204060' -seed 11 -attenuate 3 +noise Uniform "
      "-fill '#c08030' -draw 'rectangle 5,4 40,20' -fill '#10f0a0' -draw 'rectangle 0,30 60,36' ";
  const std::string alphaRamp = "\\( -size 61x37 gradient:white-black \\) -alpha off -compose CopyOpacity -composite ";
  for (bool withAlpha : {false, true})
    for (bool runLength : {false, true}) {
      SCOPED_TRACE(std::string(runLength ? "rle" : "raw") + (withAlpha ? "32" : "24"));
      std::string file = (folder / "sample.tga").string();
      std::string make = "convert " + picture + (withAlpha ? alphaRamp : "-alpha off -type TrueColor ") +
                         (runLength ? "-compress RLE " : "-compress None ") + "'" + file + "'";
      ASSERT_EQ(std::system(make.c_str()), 0) << make;
      std::vector<std::uint8_t> bytes = Capture("cat '" + file + "'");
      ASSERT_GT(bytes.size(), 18u);
      ASSERT_EQ(bytes[2], runLength ? 10 : 2) << "ImageMagick wrote another image type";
      ASSERT_EQ(bytes[16], withAlpha ? 32 : 24) << "ImageMagick wrote another depth";
      // ImageMagick 6 keeps a Targa's stored row order and notes the origin as
      // the image's orientation; -auto-orient applies it, as a viewer does.
      std::vector<std::uint8_t> expected = Capture("convert '" + file + "' -auto-orient -depth 8 rgba:-");
      ASSERT_EQ(expected.size(), 61u * 37u * 4u);

      TargaImage image;
      ASSERT_EQ(DecodeTarga(bytes.data(), bytes.size(), image), 0);
      ASSERT_EQ(image.width * 1000 + image.height, 61037);
      int mismatches = 0;
      bool translucent = false;
      for (std::size_t i = 0; i < image.PixelCount(); ++i) {
        const std::uint8_t got[4] = {image.red[i], image.green[i], image.blue[i], image.alpha[i]};
        translucent |= got[3] != 255;
        if (!std::equal(got, got + 4, &expected[i * 4]) && ++mismatches <= 5)
          ADD_FAILURE() << "pixel " << i % 61 << ", " << i / 61 << " is rgba " << int(got[0]) << " " << int(got[1])
                        << " " << int(got[2]) << " " << int(got[3]) << ", not as ImageMagick reads it";
      }
      EXPECT_EQ(mismatches, 0);
      EXPECT_EQ(translucent, withAlpha) << "24-bit files are opaque, the ramp is not";
    }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tw

#endif
