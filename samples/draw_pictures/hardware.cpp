#include "samples/draw_pictures/house.h"
#include "samples/draw_pictures/tools.h"

#include <QMap>
#include <QRegularExpression>

namespace drawing {
namespace {

// "... M8 × 40, ..." or "... 3.5 × 25 ...": the first two numbers of the description.
Size sizeOf(const Subject& subject) {
    static const QRegularExpression number(R"((\d+(?:\.\d+)?))");
    auto found = number.globalMatch(subject.description);
    Size size;
    if (found.hasNext())
        size.diameter = found.next().captured().toDouble();
    if (found.hasNext())
        size.length = found.next().captured().toDouble();
    return size;
}

// The last part of the code.
Finish finishOf(const Subject& subject) {
    static const QMap<QString, Finish> finishes{
        {"ZN", Finish::zinc},  {"A2", Finish::stainless},  {"BK", Finish::black}, {"GV", Finish::galvanised},
        {"BR", Finish::brass}, {"YZ", Finish::yellowZinc}, {"BT", Finish::bright}};
    return finishes.value(subject.code.section('-', -1), Finish::zinc);
}

Drawer driver(const Subject& subject) {
    const auto drive = subject.code.section('-', 1).left(2);
    const auto size = sizeOf(subject);
    const auto blade = drive == "SL" ? Blade::slotted : drive == "TX" ? Blade::star : Blade::cross;
    static const QMap<QString, QColor> colours{{"PZ", QColor(28, 92, 178)},
                                               {"PH", QColor(200, 42, 38)},
                                               {"SL", QColor(232, 148, 20)},
                                               {"TX", QColor(24, 132, 84)}};
    const auto width =
        blade == Blade::slotted ? size.diameter : 2 + size.diameter * (blade == Blade::star ? .16 : 1.3);
    return [=](QPainter& p) { screwdriver(p, blade, width, size.length, colours.value(drive)); };
}

QColor colourOf(const Subject& subject) {
    static const QMap<QString, QColor> colours{
        {"WH", QColor(244, 245, 246)},  {"YE", QColor(244, 196, 22)},       {"BL", QColor(30, 92, 190)},
        {"RD", QColor(206, 38, 34)},    {"CL", QColor(206, 222, 232, 120)}, {"AM", QColor(236, 158, 30, 200)},
        {"SM", QColor(72, 78, 88, 225)}};
    return colours.value(subject.code.section('-', -1));
}

using Draw = void (*)(QPainter&, const Subject&);

// By the name of the group.
const QMap<QString, Draw> drawers{
    {"Hex bolts", [](QPainter& p, const Subject& s) { hexBolt(p, sizeOf(s), finishOf(s), false); }},
    {"Set screws", [](QPainter& p, const Subject& s) { hexBolt(p, sizeOf(s), finishOf(s), true); }},
    {"Socket cap screws", [](QPainter& p, const Subject& s) { socketCapScrew(p, sizeOf(s), finishOf(s)); }},
    {"Carriage bolts", [](QPainter& p, const Subject& s) { carriageBolt(p, sizeOf(s), finishOf(s)); }},
    {"Hexagon nuts",
     [](QPainter& p, const Subject& s) { hexNut(p, sizeOf(s).diameter, finishOf(s), false); }},
    {"Lock nuts", [](QPainter& p, const Subject& s) { hexNut(p, sizeOf(s).diameter, finishOf(s), true); }},
    {"Wing nuts", [](QPainter& p, const Subject& s) { wingNut(p, sizeOf(s).diameter, finishOf(s)); }},
    {"Dome nuts", [](QPainter& p, const Subject& s) { domeNut(p, sizeOf(s).diameter, finishOf(s)); }},
    {"Flat washers",
     [](QPainter& p, const Subject& s) {
         const auto d = sizeOf(s).diameter;
         washer(p, d, d * 1.9 + 1, finishOf(s));
     }},
    {"Spring washers",
     [](QPainter& p, const Subject& s) { springWasher(p, sizeOf(s).diameter, finishOf(s)); }},
    {"Penny washers",
     [](QPainter& p, const Subject& s) { washer(p, sizeOf(s).diameter, sizeOf(s).length, finishOf(s)); }},
    {"Countersunk screws",
     [](QPainter& p, const Subject& s) { woodScrew(p, sizeOf(s), finishOf(s), false); }},
    {"Drywall screws", [](QPainter& p, const Subject& s) { woodScrew(p, sizeOf(s), Finish::black, true); }},
    {"Coach screws", [](QPainter& p, const Subject& s) { coachScrew(p, sizeOf(s), finishOf(s)); }},
    {"Wall plugs", [](QPainter& p, const Subject& s) { wallPlug(p, sizeOf(s)); }},
    {"Sleeve anchors", [](QPainter& p, const Subject& s) { sleeveAnchor(p, sizeOf(s), Finish::zinc); }},
    {"Wire nails",
     [](QPainter& p, const Subject& s) {
         const auto size = sizeOf(s); // nails are named by their length first
         wireNails(p, {size.length, size.diameter}, finishOf(s));
     }},
    {"Butt hinges", [](QPainter& p, const Subject& s) { buttHinge(p, sizeOf(s).diameter, finishOf(s)); }},
    {"Angle brackets",
     [](QPainter& p, const Subject& s) { angleBracket(p, sizeOf(s).diameter, s.code.endsWith("WH")); }},
    {"Screwdrivers", [](QPainter& p, const Subject& s) { driver(s)(p); }},
    {"Spanners", [](QPainter& p, const Subject& s) { spanner(p, sizeOf(s).diameter); }},
    {"Hex keys", [](QPainter& p, const Subject& s) { hexKey(p, sizeOf(s).diameter); }},
    {"Twist drills", [](QPainter& p, const Subject& s) { twistDrill(p, sizeOf(s).diameter, false); }},
    {"Masonry drills", [](QPainter& p, const Subject& s) { twistDrill(p, sizeOf(s).diameter, true); }},
    {"Safety helmets", [](QPainter& p, const Subject& s) { safetyHelmet(p, colourOf(s)); }},
    {"Safety glasses", [](QPainter& p, const Subject& s) { safetyGlasses(p, colourOf(s)); }},
};

}

Drawer hardware(const Subject& subject) {
    const auto found = drawers.find(subject.group);
    if (found == drawers.end())
        return {};
    return [subject, draw = *found](QPainter& painter) { draw(painter, subject); };
}

}
