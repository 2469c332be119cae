#include "base/charset.h"

#include <gtest/gtest.h>

namespace {

TEST(DeclaredCharset, IsReadFromThePagesHead) {
    const struct {
        const char* page;
        const char* charset;
    } cases[] = {
        {"", "windows-1252"},
        {"<html><body>plain", "windows-1252"},
        {"<html><head><meta charset=\"utf-8\">", "utf-8"},
        {"<META CHARSET=UTF-8>", "utf-8"},
        {"<meta charset='ISO-8859-15'/>", "iso-8859-15"},
        {"<meta\n\tcharset = koi8-r >", "koi8-r"},
        {"<meta http-equiv=\"Content-Type\" content=\"text/html; charset=Windows-1250\">", "windows-1250"},
        {"<meta content='text/html;charset=shift_jis' http-equiv=content-type>", "shift_jis"},
        {"<meta http-equiv=content-type content='text/html; charset = \"utf-8\"'>", "utf-8"},
        {"<meta name=description content='charset=utf-8'>", "windows-1252"},
        {"<meta name=author content=x><meta charset=utf-8>", "utf-8"},
        {"<!-- <meta charset=utf-8> --><meta charset=big5>", "big5"},
        {"<!-- <meta charset=utf-8>", "windows-1252"},
        {"<metadata charset=utf-8>", "windows-1252"},
        {"<meta charset>", "windows-1252"},
        {"<meta charset=", "windows-1252"},
        {"<meta charset=\"utf-8", "utf-8"},
        {"<meta charset='utf-8\nX-Header: 1'>", "windows-1252"},
        {"<meta charset='utf 8'>", "windows-1252"},
        {"<meta charset=-utf>", "windows-1252"},
        {"<meta charset=utf-16le>", "utf-8"},
        {"<", "windows-1252"},
        {"<meta ", "windows-1252"},
        {"<meta =x charset=utf-8>", "utf-8"},
    };

    for (const auto& c : cases)
        EXPECT_EQ(base::declaredCharset(c.page), c.charset) << c.page;
    EXPECT_EQ(base::declaredCharset("<meta charset=" + std::string(41, 'a') + ">"), "windows-1252");
    EXPECT_EQ(base::declaredCharset(std::string(1024, ' ').append("<meta charset=utf-8>")), "windows-1252");
}

}
