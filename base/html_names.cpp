#include "base/html_names.h"

#include <algorithm>
#include <array>

namespace base {
namespace {

struct Name {
    std::string_view name;
    char32_t character;
};

// Of the characters A0h to FFh, in their order.
constexpr std::array<std::string_view, 96> latinNames{
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",
    "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",
    "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12",
    "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil",
    "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave", "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde",
    "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",
    "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",
    "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",
    "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

// Of all others, in the order of the names.
constexpr std::array otherNames = std::to_array<Name>(
    {{"Alpha", 0x391},   {"Beta", 0x392},    {"Chi", 0x3A7},     {"Dagger", 0x2021},  {"Delta", 0x394},
     {"Epsilon", 0x395}, {"Eta", 0x397},     {"Gamma", 0x393},   {"Iota", 0x399},     {"Kappa", 0x39A},
     {"Lambda", 0x39B},  {"Mu", 0x39C},      {"Nu", 0x39D},      {"OElig", 0x152},    {"Omega", 0x3A9},
     {"Omicron", 0x39F}, {"Phi", 0x3A6},     {"Pi", 0x3A0},      {"Prime", 0x2033},   {"Psi", 0x3A8},
     {"Rho", 0x3A1},     {"Scaron", 0x160},  {"Sigma", 0x3A3},   {"Tau", 0x3A4},      {"Theta", 0x398},
     {"Upsilon", 0x3A5}, {"Xi", 0x39E},      {"Yuml", 0x178},    {"Zeta", 0x396},     {"alefsym", 0x2135},
     {"alpha", 0x3B1},   {"amp", 0x26},      {"and", 0x2227},    {"ang", 0x2220},     {"asymp", 0x2248},
     {"bdquo", 0x201E},  {"beta", 0x3B2},    {"bull", 0x2022},   {"cap", 0x2229},     {"chi", 0x3C7},
     {"circ", 0x2C6},    {"clubs", 0x2663},  {"cong", 0x2245},   {"crarr", 0x21B5},   {"cup", 0x222A},
     {"dArr", 0x21D3},   {"dagger", 0x2020}, {"darr", 0x2193},   {"delta", 0x3B4},    {"diams", 0x2666},
     {"empty", 0x2205},  {"emsp", 0x2003},   {"ensp", 0x2002},   {"epsilon", 0x3B5},  {"equiv", 0x2261},
     {"eta", 0x3B7},     {"euro", 0x20AC},   {"exist", 0x2203},  {"fnof", 0x192},     {"forall", 0x2200},
     {"frasl", 0x2044},  {"gamma", 0x3B3},   {"ge", 0x2265},     {"gt", 0x3E},        {"hArr", 0x21D4},
     {"harr", 0x2194},   {"hearts", 0x2665}, {"hellip", 0x2026}, {"image", 0x2111},   {"infin", 0x221E},
     {"int", 0x222B},    {"iota", 0x3B9},    {"isin", 0x2208},   {"kappa", 0x3BA},    {"lArr", 0x21D0},
     {"lambda", 0x3BB},  {"lang", 0x2329},   {"larr", 0x2190},   {"lceil", 0x2308},   {"ldquo", 0x201C},
     {"le", 0x2264},     {"lfloor", 0x230A}, {"lowast", 0x2217}, {"loz", 0x25CA},     {"lrm", 0x200E},
     {"lsaquo", 0x2039}, {"lsquo", 0x2018},  {"lt", 0x3C},       {"mdash", 0x2014},   {"minus", 0x2212},
     {"mu", 0x3BC},      {"nabla", 0x2207},  {"ndash", 0x2013},  {"ne", 0x2260},      {"ni", 0x220B},
     {"notin", 0x2209},  {"nsub", 0x2284},   {"nu", 0x3BD},      {"oelig", 0x153},    {"oline", 0x203E},
     {"omega", 0x3C9},   {"omicron", 0x3BF}, {"oplus", 0x2295},  {"or", 0x2228},      {"otimes", 0x2297},
     {"part", 0x2202},   {"permil", 0x2030}, {"perp", 0x22A5},   {"phi", 0x3C6},      {"pi", 0x3C0},
     {"piv", 0x3D6},     {"prime", 0x2032},  {"prod", 0x220F},   {"prop", 0x221D},    {"psi", 0x3C8},
     {"quot", 0x22},     {"rArr", 0x21D2},   {"radic", 0x221A},  {"rang", 0x232A},    {"rarr", 0x2192},
     {"rceil", 0x2309},  {"rdquo", 0x201D},  {"real", 0x211C},   {"rfloor", 0x230B},  {"rho", 0x3C1},
     {"rlm", 0x200F},    {"rsaquo", 0x203A}, {"rsquo", 0x2019},  {"sbquo", 0x201A},   {"scaron", 0x161},
     {"sdot", 0x22C5},   {"sigma", 0x3C3},   {"sigmaf", 0x3C2},  {"sim", 0x223C},     {"spades", 0x2660},
     {"sub", 0x2282},    {"sube", 0x2286},   {"sum", 0x2211},    {"sup", 0x2283},     {"supe", 0x2287},
     {"tau", 0x3C4},     {"there4", 0x2234}, {"theta", 0x3B8},   {"thetasym", 0x3D1}, {"thinsp", 0x2009},
     {"tilde", 0x2DC},   {"trade", 0x2122},  {"uArr", 0x21D1},   {"uarr", 0x2191},    {"upsih", 0x3D2},
     {"upsilon", 0x3C5}, {"weierp", 0x2118}, {"xi", 0x3BE},      {"zeta", 0x3B6},     {"zwj", 0x200D},
     {"zwnj", 0x200C}});

}

std::optional<char32_t> htmlCharacter(std::string_view name) {
    const auto* const latin = std::find(latinNames.begin(), latinNames.end(), name);
    if (latin != latinNames.end())
        return char32_t{0xA0} + static_cast<char32_t>(latin - latinNames.begin());
    const auto* const other =
        std::lower_bound(otherNames.begin(), otherNames.end(), name,
                         [](const Name& entry, std::string_view wanted) { return entry.name < wanted; });
    if (other == otherNames.end() || other->name != name)
        return std::nullopt;
    return other->character;
}

}
