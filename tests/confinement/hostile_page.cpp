#include "tests/confinement/hostile_page.h"

#include "base/files.h"
#include "tests/confinement/listeners.h"
#include "tests/confinement/private_network.h"
#include "tests/confinement/ways_out.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace confinement {
namespace {

constexpr auto tryAll = R"JS(
var finished = 0;

function tryAll(atOnce, later, done) {
    atOnce.forEach(attempt);
    later.forEach(function (way, i) { setTimeout(attempt, 20 * i, way); });
    setTimeout(done, 20 * later.length + 200);
}

function tryAllInWorker() {
    var code = [attempt, "var tried = 0", "(" + JSON.stringify(ways) + ").forEach(attempt)", "postMessage('through')"];
    var worker = new Worker(URL.createObjectURL(new Blob([code.join(";")])));
    worker.onmessage = worker.onerror = function () { ++finished; };
}

onmessage = function (message) {
    if (message.data === "through")
        ++finished;
};

if (self === top)
    try { tryAllInWorker(); } catch (refused) { ++finished; }
tryAll(ways, away, function () { top.postMessage("through", "*"); });
)JS";

template <typename Ways>
QByteArray asJson(const Ways& ways, std::size_t first) {
    QJsonArray array;
    auto way = first;
    for (const auto& [name, code, plain] : ways)
        for (const bool named : {true, false}) {
            const auto host = named ? "w" + QString::number(way) + ".outside.test" : QString(ownAddress);
            array.append(
                QJsonObject{{"code", code}, {"host", host}, {"port", int(Listeners::firstPort + way)}});
            ++way;
        }
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

}

std::vector<std::string> listenedWays() {
    std::vector<std::string> names;
    const auto add = [&names](const auto& ways) {
        for (const auto& way : ways)
            for (const char* how : {", named", ", by address"})
                names.push_back(std::string(way.name) + how);
    };
    add(waysOut);
    add(waysAway);
    return names;
}

std::string waysScript() {
    auto script = base::readFile(TAVORINE_CONFINEMENT_FOLDER "/ways.js").value();
    script += "\nvar ways = " + asJson(waysOut, 0).toStdString() + ";";
    script += "\nvar away = " + asJson(waysAway, 2 * waysOut.size()).toStdString() + ";\n";
    return script;
}

std::string tryAllScript() {
    return waysScript() + tryAll;
}

}
