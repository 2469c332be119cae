#include "samples/draw_pictures/containers.h"
#include "samples/draw_pictures/house.h"

#include <QMap>

#include <algorithm>
#include <array>
#include <utility>

namespace drawing {
namespace {

const QColor cream(252, 247, 235);
const QColor wine(92, 22, 40);

// Colours of what is inside, by a word of the description; the first that occurs is taken.
const std::array contents{
    std::pair{"Paprika", QColor(192, 40, 20)},
    std::pair{"Pimentón", QColor(170, 48, 22)},
    std::pair{"Piment ", QColor(182, 56, 24)},
    std::pair{"Curcuma", QColor(232, 164, 16)},
    std::pair{"Gingembre moulu", QColor(220, 190, 134)},
    std::pair{"Cannelle", QColor(156, 92, 48)},
    std::pair{"uscade", QColor(142, 104, 72)},
    std::pair{"Cumin", QColor(160, 126, 72)},
    std::pair{"Coriandre", QColor(198, 162, 96)},
    std::pair{"Sumac", QColor(124, 26, 44)},
    std::pair{"Cayenne", QColor(206, 62, 22)},
    std::pair{"Ail ", QColor(238, 224, 184)},
    std::pair{"Cardamome", QColor(156, 172, 104)},
    std::pair{"girofle", QColor(84, 52, 34)},
    std::pair{"Anis", QColor(136, 76, 40)},
    std::pair{"Kümmel", QColor(128, 96, 60)},
    std::pair{"Genièvre", QColor(50, 48, 72)},
    std::pair{"moutarde, jar", QColor(214, 176, 82)},
    std::pair{"Graines de moutarde", QColor(214, 176, 82)},
    std::pair{"Fenouil", QColor(158, 164, 92)},
    std::pair{"Vanille «", QColor(52, 32, 24)},
    std::pair{"Laurier", QColor(110, 126, 74)},
    std::pair{"Safran", QColor(190, 40, 12)},
    std::pair{"Doux Été", QColor(230, 178, 56)},
    std::pair{"Malabar", QColor(206, 138, 36)},
    std::pair{"hanout", QColor(158, 98, 50)},
    std::pair{"Quatre", QColor(122, 84, 56)},
    std::pair{"Herbes", QColor(120, 130, 76)},
    std::pair{"Garam", QColor(126, 84, 48)},
    std::pair{"Za", QColor(122, 118, 62)},
    std::pair{"Lebkuchengew", QColor(150, 92, 46)},
    std::pair{"vin chaud", QColor(138, 64, 38)},
    std::pair{"Smørrebrød", QColor(160, 160, 92)},
    std::pair{"Sel gris", QColor(196, 194, 188)},
    std::pair{"Sel fumé", QColor(190, 164, 132)},
    std::pair{"algues", QColor(196, 206, 190)},
    std::pair{"truffe", QColor(206, 196, 180)},
    std::pair{"Fleur de sel", QColor(240, 238, 232)},
    std::pair{"Poivre noir", QColor(58, 48, 42)},
    std::pair{"Poivre blanc", QColor(214, 200, 168)},
    std::pair{"Poivre rouge", QColor(130, 44, 30)},
    std::pair{"Poivre long", QColor(82, 68, 56)},
    std::pair{"Baies roses", QColor(214, 88, 92)},
    std::pair{"Abricot", QColor(236, 138, 30)},
    std::pair{"Fraise", QColor(186, 24, 34)},
    std::pair{"Framboise", QColor(176, 18, 58)},
    std::pair{"Cassis", QColor(62, 14, 52)},
    std::pair{"Mirabelle", QColor(230, 166, 36)},
    std::pair{"Quetsche", QColor(86, 22, 58)},
    std::pair{"Orange", QColor(232, 118, 18)},
    std::pair{"Citron", QColor(236, 200, 48)},
    std::pair{"Reine", QColor(150, 160, 50)},
    std::pair{"Myrtille", QColor(44, 22, 76)},
    std::pair{"Hyben", QColor(204, 62, 26)},
    std::pair{"Rhabarber", QColor(204, 92, 88)},
    std::pair{"Figue", QColor(110, 40, 60)},
    std::pair{"Coing", QColor(226, 112, 44)},
    std::pair{"Acacia", QColor(240, 200, 96)},
    std::pair{"Lavande", QColor(244, 226, 170)},
    std::pair{"Châtaignier", QColor(132, 66, 20)},
    std::pair{"Tilleul", QColor(236, 190, 84)},
    std::pair{"Lyng", QColor(196, 106, 30)},
    std::pair{"sapins", QColor(70, 38, 18)},
    std::pair{"oranger", QColor(238, 184, 70)},
    std::pair{"Sarrasin", QColor(98, 48, 18)},
    std::pair{"noix", QColor(196, 150, 62)},
    std::pair{"noisette", QColor(214, 164, 70)},
    std::pair{"courge", QColor(38, 54, 20)},
    std::pair{"colza", QColor(224, 170, 30)},
    std::pair{"sésame", QColor(150, 84, 28)},
    std::pair{"pistache", QColor(126, 146, 40)},
    std::pair{"framboise", QColor(184, 32, 62)},
    std::pair{"Xérès", QColor(120, 60, 24)},
    std::pair{"balsamique", QColor(44, 24, 18)},
    std::pair{"cidre", QColor(222, 170, 82)},
    std::pair{"Banyuls", QColor(126, 44, 30)},
    std::pair{"Æble", QColor(228, 186, 96)},
    std::pair{"échalote", QColor(196, 92, 88)},
    std::pair{"Quitten", QColor(232, 176, 60)},
    std::pair{"olive", QColor(168, 164, 40)},
};

QColor contentOf(const Subject& subject, const QColor& otherwise) {
    const auto found = std::find_if(contents.begin(), contents.end(), [&](const auto& entry) {
        return subject.description.contains(QString::fromUtf8(entry.first));
    });
    return found == contents.end() ? otherwise : found->second;
}

// One of the house's colours, the same for all sizes of a product.
QColor houseColour(const Subject& subject) {
    constexpr std::array<QRgb, 11> colours{0xff1f4e5f, 0xff7a1f3d, 0xff2f5d3a, 0xffb5651d,
                                           0xff40356f, 0xff8a2f1e, 0xff1d6b6b, 0xff9c7a1f,
                                           0xff5a3a26, 0xff3b5b8c, 0xff6b7a2c};
    return QColor::fromRgb(colours[subject.code.mid(3, 3).toUInt() % colours.size()]);
}

// "Darjeeling «Forêt», tin 50 g" has the title before the comma and the size behind it.
Label labelOf(const Subject& subject, const QColor& ink, const QColor& paper = cream) {
    auto title = subject.description.section(", ", 0, -2);
    for (const char* kind : {"Confiture ", "Moutarde ", "Chocolat "})
        if (title.startsWith(kind))
            title.remove(0, static_cast<int>(qstrlen(kind)));
    title[0] = title[0].toUpper();
    return {title, subject.description.section(", ", -1), paper, ink};
}

void tea(QPainter& painter, const Subject& subject) {
    const auto colour = houseColour(subject);
    const auto size = subject.code.right(1);
    const auto isBag = subject.description.contains(", bag");
    const auto scale = isBag ? 1.06 : size == "A" ? .84 : 1.04;
    painter.scale(scale, scale);
    if (isBag)
        bag(painter, QColor(196, 164, 116), labelOf(subject, colour), false);
    else
        teaTin(painter, colour, labelOf(subject, colour));
}

void coffee(QPainter& painter, const Subject& subject) {
    const auto scale = subject.code.endsWith('A') ? .86 : 1.1;
    painter.scale(scale, scale);
    const auto colour = houseColour(subject);
    bag(painter, blend(colour, QColor(40, 26, 18), .55), labelOf(subject, blend(colour, Qt::black, .2)),
        true);
}

void spice(QPainter& painter, const Subject& subject) {
    const auto content = contentOf(subject, QColor(150, 110, 60));
    const auto ink = blend(content, Qt::black, content.lightness() > 120 ? .6 : .25);
    if (subject.description.contains(", refill") || subject.description.contains(", bag"))
        return bag(painter, QColor(206, 178, 132), labelOf(subject, ink), false);
    painter.scale(1.08, 1.08);
    spiceJar(painter, content, labelOf(subject, ink));
}

void jam(QPainter& painter, const Subject& subject) {
    jamJar(painter, contentOf(subject, QColor(180, 40, 40)), wine, labelOf(subject, wine));
}

void honey(QPainter& painter, const Subject& subject) {
    painter.scale(1.04, 1.04);
    auto label = labelOf(subject, QColor(110, 66, 12));
    jamJar(painter, contentOf(subject, QColor(230, 170, 50)), QColor(186, 138, 44), label);
}

void oil(QPainter& painter, const Subject& subject) {
    const auto scale = subject.description.endsWith(QString::fromUtf8("¼ l")) ? .94 : 1.1;
    painter.scale(scale, scale);
    const auto content = contentOf(subject, QColor(176, 158, 44));
    bottle(painter, content, labelOf(subject, blend(content, QColor(40, 30, 20), .62)));
}

void chocolate(QPainter& painter, const Subject& subject) {
    const bool white = subject.description.contains("Blanc");
    const bool milk = subject.description.contains("Lait") || subject.description.contains("Gianduja");
    const auto colour = houseColour(subject);
    chocolateBar(painter, colour,
                 white  ? QColor(244, 226, 184)
                 : milk ? QColor(140, 86, 48)
                        : QColor(70, 40, 26),
                 labelOf(subject, colour));
}

using Draw = void (*)(QPainter&, const Subject&);

// By the first two letters of the code.
const QMap<QString, Draw> drawers{
    {"TD", tea},
    {"TA", tea},
    {"TC", tea},
    {"TG", tea},
    {"TO", tea},
    {"TH", tea},
    {"KA", coffee},
    {"EG", spice},
    {"EM", spice},
    {"EB", spice},
    {"ES", spice},
    {"CO", jam},
    {"MI", honey},
    {"SE", [](QPainter& p, const Subject& s) { mustardPot(p, houseColour(s), labelOf(s, houseColour(s))); }},
    {"HO", oil},
    {"HN", oil},
    {"VI", oil},
    {"CH", chocolate},
    {"BI", [](QPainter& p, const Subject& s) { biscuitBox(p, houseColour(s), labelOf(s, houseColour(s))); }},
    {"PO", [](QPainter& p, const Subject& s) { fishTin(p, houseColour(s), labelOf(s, houseColour(s))); }},
};

}

Drawer groceries(const Subject& subject) {
    const auto found = drawers.find(subject.code.left(2));
    if (found == drawers.end())
        return {};
    return [subject, draw = *found](QPainter& painter) { draw(painter, subject); };
}

}
