// What a hostile page has at hand to try every way out of `ways`: [{code, host, port}, ...].
function tag(name, attributes, parent) {
    var element = document.createElement(name);
    for (var key in attributes || {})
        element.setAttribute(key, attributes[key]);
    (parent || document.body).appendChild(element);
    return element;
}

function style(text) {
    tag("style").textContent = text;
}

function frame(html) {
    tag("iframe", {srcdoc: html});
}

function svg(content) {
    tag("div").innerHTML = "<svg>" + content + "</svg>";
}

function work(code) {
    new Worker(URL.createObjectURL(new Blob([code])));
}

function peer(servers) {
    var one = new RTCPeerConnection({iceServers: servers});
    one.createDataChannel("c");
    return one.createOffer().then(function (offer) { return one.setLocalDescription(offer); });
}

// Two ends of a connection; one of them is told that the other can be met elsewhere too.
function meet(candidate) {
    var one = new RTCPeerConnection();
    var other = new RTCPeerConnection();
    one.createDataChannel("c");
    return one.createOffer()
        .then(function (offer) { return Promise.all([one.setLocalDescription(offer), other.setRemoteDescription(offer)]); })
        .then(function () { return other.createAnswer(); })
        .then(function (answer) { return Promise.all([other.setLocalDescription(answer), one.setRemoteDescription(answer)]); })
        .then(function () {
            return one.addIceCandidate({candidate: "candidate:1 1 " + candidate, sdpMid: "0", sdpMLineIndex: 0});
        });
}

var tried = 0;

function attempt(way) {
    try {
        var outcome = new Function("H", "N", "P", way.code)(way.host + ":" + way.port, way.host, way.port);
        if (outcome && outcome.catch)
            outcome.catch(function () {});
    } catch (refused) {
    }
    ++tried;
}
