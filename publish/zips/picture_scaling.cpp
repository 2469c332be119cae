#include "publish/zips/picture_scaling.h"

#include "publish/zips/pictures.h"

#ifdef TAVORINE_SCALES_PICTURES
#include <cstdarg>
#include <gd.h>
#include <memory>
#include <mutex>
#include <png.h>
#include <utility>
#include <vector>
#endif

namespace publish {

#ifdef TAVORINE_SCALES_PICTURES

namespace {

constexpr int jpegQuality = 85;
constexpr int pngLevel = 6;

struct Free {
    void operator()(gdImage* image) const { gdImageDestroy(image); }

    void operator()(void* bytes) const { gdFree(bytes); }
};

using Image = std::unique_ptr<gdImage, Free>;

// Whether the library has complained on this thread; what it says would go to the terminal.
thread_local bool hasComplained = false;

void noteComplaint(int /*priority*/, const char* /*format*/, va_list /*arguments*/) {
    hasComplained = true;
}

void listenToLibrary() {
    static std::once_flag once; // it tells all threads alike
    std::call_once(once, [] { gdSetErrorMethod(noteComplaint); });
}

// One that is cut off comes back with grey where its rest should be, and a complaint.
Image decodedJpeg(std::string_view bytes) {
    constexpr int complain = 0;
    auto* data = const_cast<char*>(bytes.data()); // the library only reads it
    listenToLibrary();
    hasComplained = false;
    Image image(gdImageCreateFromJpegPtrEx(static_cast<int>(bytes.size()), data, complain));
    return hasComplained ? nullptr : std::move(image);
}

Image blank(int width, int height) {
    Image image(gdImageCreateTrueColor(width, height));
    if (image) {
        gdImageAlphaBlending(image.get(), 0);
        gdImageSaveAlpha(image.get(), 1);
    }
    return image;
}

Image imageOf(const std::vector<png_byte>& pixels, int width, int height) {
    auto image = blank(width, height);
    const auto* at = pixels.data();
    for (int y = 0; image && y < height; ++y)
        for (int x = 0; x < width; ++x, at += 4)
            gdImageTrueColorPixel(image.get(), x, y) =
                gdTrueColorAlpha(at[0], at[1], at[2], gdAlphaMax - at[3] / 2);
    return image;
}

// Not by the library that scales, which has trifles written to the terminal.
Image decodedPng(std::string_view bytes) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()) == 0)
        return nullptr;
    png.format = PNG_FORMAT_RGBA;
    std::vector<png_byte> pixels(std::size_t{4} * png.width * png.height);
    if (png_image_finish_read(&png, nullptr, pixels.data(), 0, nullptr) == 0)
        return nullptr;
    return imageOf(pixels, static_cast<int>(png.width), static_cast<int>(png.height));
}

Image resampled(gdImage& image, int width, int height) {
    auto made = blank(width, height);
    if (made)
        gdImageCopyResampled(made.get(), &image, 0, 0, 0, 0, width, height, gdImageSX(&image),
                             gdImageSY(&image));
    return made;
}

struct Point {
    int x;
    int y;
};

// Where the pixel that is to be shown at (x, y) stands.
Point stored(int wayUp, int x, int y, int right, int bottom) {
    switch (wayUp) {
    case 2:
        return {right - x, y};
    case 3:
        return {right - x, bottom - y};
    case 4:
        return {x, bottom - y};
    case 5:
        return {y, x};
    case 6:
        return {y, bottom - x};
    case 7:
        return {right - y, bottom - x};
    case 8:
        return {right - y, x};
    default:
        return {x, y};
    }
}

Image upright(Image image, int wayUp) {
    if (!image || wayUp == 1)
        return image;
    const int width = gdImageSX(image.get());
    const int height = gdImageSY(image.get());
    const bool isOnItsSide = wayUp >= 5;
    auto made = isOnItsSide ? blank(height, width) : blank(width, height);
    for (int y = 0; made && y < gdImageSY(made.get()); ++y)
        for (int x = 0; x < gdImageSX(made.get()); ++x) {
            const auto from = stored(wayUp, x, y, width - 1, height - 1);
            gdImageSetPixel(made.get(), x, y, gdImageGetTrueColorPixel(image.get(), from.x, from.y));
        }
    return made;
}

std::string encoded(gdImage& image, PictureHeader::Kind kind) {
    int size = 0;
    const std::unique_ptr<void, Free> bytes(kind == PictureHeader::Kind::png
                                                ? gdImagePngPtrEx(&image, &size, pngLevel)
                                                : gdImageJpegPtr(&image, &size, jpegQuality));
    return bytes ? std::string(static_cast<const char*>(bytes.get()), static_cast<std::size_t>(size))
                 : std::string();
}

// The first segment says that it is a JPEG and has to stay the first.
std::string withProfile(std::string jpeg, const std::string& profile) {
    constexpr std::size_t lengthAt = 4;
    if (jpeg.size() <= lengthAt + 2)
        return jpeg;
    const auto length =
        (static_cast<unsigned char>(jpeg[lengthAt]) << 8U) | static_cast<unsigned char>(jpeg[lengthAt + 1]);
    return jpeg.insert(lengthAt + static_cast<std::size_t>(length), profile);
}

}

bool canScalePictures() {
    return true;
}

std::optional<std::string> scaledPicture(std::string_view bytes, const PictureHeader& header,
                                         std::uint32_t width, std::uint32_t height) {
    auto image = header.kind == PictureHeader::Kind::png ? decodedPng(bytes) : decodedJpeg(bytes);
    if (image)
        image = resampled(*image, static_cast<int>(width), static_cast<int>(height));
    image = upright(std::move(image), header.wayUp);
    auto made = image ? encoded(*image, header.kind) : std::string();
    if (made.empty())
        return std::nullopt;
    return header.profile.empty() ? made : withProfile(std::move(made), header.profile);
}

#else

bool canScalePictures() {
    return false;
}

std::optional<std::string> scaledPicture(std::string_view /*bytes*/, const PictureHeader& /*header*/,
                                         std::uint32_t /*width*/, std::uint32_t /*height*/) {
    return std::nullopt;
}

#endif

}
