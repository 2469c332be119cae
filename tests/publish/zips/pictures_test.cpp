#include "publish/zips/pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <gd.h>
#include <memory>

namespace {

using namespace std::string_literals;
using Image = std::unique_ptr<gdImage, decltype(&gdImageDestroy)>;

constexpr int red = 0xFF0000;
constexpr int blue = 0x0000FF;
constexpr int clear = gdAlphaTransparent << 24;

Image cornered(int width, int height, int corner, int rest) {
    Image image(gdImageCreateTrueColor(width, height), gdImageDestroy);
    gdImageAlphaBlending(image.get(), 0);
    gdImageSaveAlpha(image.get(), 1);
    gdImageFilledRectangle(image.get(), 0, 0, width, height, rest);
    gdImageFilledRectangle(image.get(), 0, 0, width / 2 - 1, height / 2 - 1, corner);
    return image;
}

std::string taken(void* bytes, int size) {
    std::string text(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    gdFree(bytes);
    return text;
}

/// Red in the corner at the top left of what is stored.
std::string jpeg(int width, int height, const std::string& segments = "") {
    int size = 0;
    auto* bytes = gdImageJpegPtr(cornered(width, height, red, blue).get(), &size, 95);
    return taken(bytes, size).insert(2, segments);
}

std::string png(int width, int height, int corner, int rest) {
    int size = 0;
    auto* bytes = gdImagePngPtr(cornered(width, height, corner, rest).get(), &size);
    return taken(bytes, size);
}

// A camera's note of which way is up.
std::string notes(char wayUp) {
    return "\xFF\xE1\0\x22"s + "Exif\0\0"s + "MM\0\x2A\0\0\0\x08"s + "\0\x01\x01\x12\0\x03\0\0\0\x01\0"s +
           wayUp + "\0\0\0\0\0\0"s;
}

Image decoded(std::string bytes) {
    const auto size = static_cast<int>(bytes.size());
    return {bytes.starts_with('\xFF') ? gdImageCreateFromJpegPtr(size, bytes.data())
                                      : gdImageCreateFromPngPtr(size, bytes.data()),
            gdImageDestroy};
}

struct Pictures : testing::Test {
    std::string scaled(const std::string& bytes, const std::string& name = "a.jpg") {
        return publish::PictureScaler(100).scaled(bytes, name, complaints);
    }

    /// The rule by which the picture was given back as it is; "" where nothing is complained of.
    std::string ruleOf(const std::string& bytes, const std::string& name = "a.jpg") {
        complaints.clear();
        EXPECT_EQ(scaled(bytes, name), bytes);
        return complaints.empty() ? "" : complaints.front().rule;
    }

    publish::Complaints complaints;
};

TEST_F(Pictures, TheLongerEdgeIsAsAskedForAndThePictureStandsUpright) {
    const struct {
        char wayUp;
        int width, height;
        int redX, redY;
    } cases[] = {{1, 100, 50, 0, 0}, {2, 100, 50, 99, 0}, {3, 100, 50, 99, 49}, {4, 100, 50, 0, 49},
                 {5, 50, 100, 0, 0}, {6, 50, 100, 49, 0}, {7, 50, 100, 49, 99}, {8, 50, 100, 0, 99}};

    for (const auto& expected : cases) {
        SCOPED_TRACE(static_cast<int>(expected.wayUp));
        const auto image = decoded(scaled(jpeg(400, 200, notes(expected.wayUp))));
        ASSERT_TRUE(image);
        EXPECT_EQ(gdImageSX(image.get()), expected.width);
        EXPECT_EQ(gdImageSY(image.get()), expected.height);
        const auto color = gdImageGetTrueColorPixel(image.get(), expected.redX, expected.redY);
        EXPECT_GT(gdTrueColorGetRed(color), 240);
        EXPECT_LT(gdTrueColorGetBlue(color), 15);
    }
    EXPECT_TRUE(complaints.empty());
}

TEST_F(Pictures, WhatIsClearStaysClearAndBleedsNoColour) {
    const auto image = decoded(scaled(png(300, 301, red, clear), "a.PNG"));
    ASSERT_TRUE(image);
    EXPECT_EQ(gdImageSY(image.get()), 100);
    EXPECT_EQ(gdImageGetTrueColorPixel(image.get(), 10, 10), red);
    EXPECT_EQ(gdTrueColorGetAlpha(gdImageGetTrueColorPixel(image.get(), 99, 99)), gdAlphaTransparent);
    for (int x = 40; x < 60; ++x) { // the edge between them
        const auto color = gdImageGetTrueColorPixel(image.get(), x, 10);
        EXPECT_TRUE(gdTrueColorGetAlpha(color) == gdAlphaTransparent || gdTrueColorGetRed(color) > 250) << x;
    }
}

TEST_F(Pictures, AColourProfileGoesAlongAndTheSameBytesComeEachTime) {
    const auto profile = "\xFF\xE2\0\x13"s + "ICC_PROFILE\0"s + "\x01\x01xyz"s;
    const auto picture = jpeg(400, 200, profile);
    const auto made = scaled(picture);
    EXPECT_THAT(made, testing::HasSubstr(profile));
    EXPECT_TRUE(decoded(made));
    EXPECT_EQ(scaled(picture), made);
}

TEST_F(Pictures, WhatIsSmallOrCannotBeScaledStaysAsItIs) {
    EXPECT_EQ(ruleOf(jpeg(100, 100, notes(6))), "");
    EXPECT_EQ(ruleOf(png(100, 1, red, blue), "a.png"), "");
    EXPECT_EQ(ruleOf("GIF89a", "a.gif"), "");
    EXPECT_EQ(ruleOf(""), "picture-damaged");
    EXPECT_EQ(ruleOf("<html>"), "picture-damaged");
    const auto whole = jpeg(400, 200);
    for (const auto size : {3U, 20U, 200U, 600U})
        EXPECT_EQ(ruleOf(whole.substr(0, whole.size() * size / 1000)), "picture-damaged") << size;
    const auto dots = png(400, 200, red, blue);
    EXPECT_EQ(ruleOf(dots.substr(0, dots.size() / 2), "a.png"), "picture-damaged");
    auto bomb = png(400, 200, red, blue);
    bomb.replace(16, 8, "\0\0\x80\0\0\0\x80\0"s);
    EXPECT_EQ(ruleOf(bomb, "a.png"), "picture-too-large");
    auto slow = jpeg(400, 200);
    EXPECT_EQ(ruleOf("\xFF\xD8\xFF\xE1\0\0\xFF\xE1\0"s), "picture-damaged");
    for (int i = 0; i < 200; ++i)
        slow += "\xFF\xDA\0\x02"s;
    slow.erase(slow.find("\xFF\xD9"s), 2);
    EXPECT_EQ(ruleOf(slow), "picture-too-large");
}

}
