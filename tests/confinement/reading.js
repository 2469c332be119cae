// Tries every way to read each of `files`, and writes into `read` of the top page what came of it: "way file".
// A page, a script or a worker that has been read says so itself.
var read = [];

// Older browsers stand still over so many workers, which read nothing there anyway.
var workersMayRead = /Chrome\/(\d+)/.exec(navigator.userAgent)[1] >= 125;

function tell(what) {
    if (self === top)
        read.push(what);
    else
        top.postMessage(what, "*");
}

onmessage = function (message) {
    if (typeof message.data === "string")
        tell(message.data);
};

function part(name, attributes, onload) {
    var element = document.createElement(name);
    if (onload)
        element.onload = element.onloadedmetadata = function () { onload(element); };
    for (var key in attributes)
        element.setAttribute(key, attributes[key]);
    document.body.appendChild(element);
    return element;
}

function told(way, file) {
    return function () { tell(way + " " + file); };
}

function textTold(way, file) {
    return function (text) { if (text.indexOf("secret") >= 0) tell(way + " " + file); };
}

// Pictures that are read are 7 pixels wide; a placeholder for a missing one is not.
function seePicture(file) {
    part("img", {src: file}, function (picture) {
        if (picture.naturalWidth !== 7)
            return;
        tell("picture " + file);
        var canvas = document.createElement("canvas");
        canvas.getContext("2d").drawImage(picture, 0, 0);
        canvas.toDataURL();
        tell("canvas " + file);
    });
}

function seeFrame(way, name, attribute, file) {
    var attributes = {};
    attributes[attribute] = file;
    part(name, attributes, function (frame) { textTold(way, file)(frame.contentDocument.body.innerHTML); });
}

function seeStyle(file) {
    part("link", {rel: "stylesheet", href: file}, function (link) {
        tell("style " + file);
        if (link.sheet.cssRules.length)
            tell("rules " + file);
    });
    part("style", {}).textContent = "@import '" + file + "'";
}

function request(file) {
    var it = new XMLHttpRequest();
    it.onload = function () { textTold("request", file)(it.responseText); };
    it.open("GET", file);
    it.send();
}

function work(way, address, file) {
    new Worker(address).onmessage = told(way, file);
}

function workWith(file) {
    var code = "importScripts('" + new URL(file, document.baseURI) + "')";
    work("script of a worker", URL.createObjectURL(new Blob([code])), file);
}

// With the worker of a window; the window itself is told.
function askWorker(realm, way, address) {
    if (!workersMayRead)
        return;
    var code = "var it = new XMLHttpRequest(); it.onload = function () { postMessage(it.responseText) };" +
        " it.open('GET', '" + address + "'); it.send()";
    var worker = new realm.Worker(realm.URL.createObjectURL(new realm.Blob([code])));
    worker.onmessage = function (answer) {
        if (answer.data.indexOf("secret") >= 0)
            top.postMessage(way, "*");
    };
}

function workerIn(way, file, frame) {
    if (!workersMayRead)
        return;
    var address = String(new URL(file, document.baseURI));
    var call = "askWorker(self, " + JSON.stringify(way + " " + file) + ", " + JSON.stringify(address) + ")";
    part("iframe", frame("<script>var workersMayRead = true;" + askWorker + call + "</" + "script>"));
}

function workerOfBlankFrame(file) {
    var realm = part("iframe", {}).contentWindow;
    askWorker(realm, "worker of a blank frame " + file, new URL(file, document.baseURI));
}

function blobOf(text) {
    return {src: URL.createObjectURL(new Blob([text], {type: "text/html"}))};
}

function fontOf(file) {
    return new FontFace("f", "url('" + file + "')").load().then(told("font", file));
}

function picturesInSvg(file) {
    var div = document.createElement("div");
    div.innerHTML = "<svg><use href='" + file + "#secret'/></svg>";
    document.body.appendChild(div);
    var look = setInterval(function () {
        if (div.querySelector("use").getBBox().width === 0)
            return;
        clearInterval(look);
        tell("use " + file);
    }, 100);
}

// Which files each is tried on. What is refused to a frame or an object costs a process.
var waysToRead = [
    [/./, seePicture],
    [/./, seeStyle],
    [/./, request],
    [/./, function (file) { seeFrame("frame", "iframe", "src", file); }],
    [/own.htm|ini/, function (file) { seeFrame("object", "object", "data", file); }],
    [/./, function (file) { part("script", {src: file}, told("script", file)); }],
    [/./, function (file) { return fetch(file).then(function (a) { return a.text(); }).then(textTold("fetch", file)); }],
    [/own.(htm|svg)/, function (file) { seeFrame("embedded object", "embed", "src", file); }],
    [/htm|js/, function (file) { part("link", {rel: "prefetch", href: file}, told("prefetch", file)); }],
    [/ini|htm/, function (file) { part("link", {rel: "preload", as: "fetch", href: file}, told("preload", file)); }],
    [/svg/, picturesInSvg],
    [/ttf/, fontOf],
    [/wav/, function (file) { part("audio", {src: file, preload: "auto"}, told("sound", file)); }],
    [/wav/, function (file) { part("video", {src: file, preload: "auto"}, told("film", file)); }],
    [/js/, function (file) { part("script", {src: file, type: "module"}, told("module", file)); }],
    [/js/, function (file) { return import(file).then(told("import", file)); }],
    [/js/, function (file) { work("worker", file, file); }],
    [/js/, function (file) { new SharedWorker(file).port.onmessage = told("shared worker", file); }],
    [/js/, workWith],
    [/own.htm|ini|Tmp/, function (file) { askWorker(self, "request of a worker " + file, new URL(file, document.baseURI)); }],
    [/own.htm|User/, workerOfBlankFrame],
    [/own.htm|User/, function (file) { workerIn("worker of a written frame", file, function (text) { return {srcdoc: text}; }); }],
    [/own.htm|User/, function (file) { workerIn("worker of a blob's frame", file, blobOf); }],
];

function tryWay(way, file) {
    try {
        var outcome = way(file);
        if (outcome && outcome.catch)
            outcome.catch(function () {});
    } catch (refused) {
    }
}

// In the first script, before there is a body.
function readEarly(file) {
    tryWay(function () { askWorker(self, "early worker " + file, new URL(file, document.baseURI)); }, file);
}

function readAll(files) {
    files.forEach(function (file) {
        waysToRead.forEach(function (way) {
            if (way[0].test(file))
                tryWay(way[1], file);
        });
    });
    tell("through");
}
