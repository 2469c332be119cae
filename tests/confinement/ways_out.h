#pragma once

#include <array>

namespace confinement {

/// What a browser that nothing confines lets out.
enum class Plain {
    always,  ///< whether the host is named or given by its address
    ifNamed, ///< the look-up of its name
    never,   ///< nothing; it is tried all the same
};

/// One thing that a page may try to reach a host outside. In the code, which is the body of a function, `H`
/// is the host with its port, `N` the host, `P` the port.
struct WayOut {
    const char* name;
    const char* code;
    Plain plain = Plain::always;
};

/// What can be tried side by side on one page. `tag`, `style`, `frame` and `peer` stand in `ways.js`.
inline constexpr std::array waysOut{
    WayOut{"picture", "tag('img', {src: 'http://' + H + '/x.png'})"},
    WayOut{"picture by script", "new Image().src = 'http://' + H + '/x.png'"},
    WayOut{"picture set", "tag('img', {srcset: 'http://' + H + '/x.png 2x'})"},
    WayOut{"source of a picture", "tag('source', {srcset: 'http://' + H + '/x'}, tag('picture')); "
                                  "tag('img', {}, document.querySelector('picture:last-of-type'))"},
    WayOut{"picture of a button", "tag('input', {type: 'image', src: 'http://' + H + '/x.png'})"},
    WayOut{"picture in SVG", "svg('<image width=\"9\" height=\"9\" href=\"http://' + H + '/x.png\"/>')"},
    WayOut{"use in SVG", "svg('<use href=\"http://' + H + '/x.svg#a\"/>')", Plain::never},
    WayOut{"picture in an SVG filter",
           "svg('<filter id=\"f' + P + '\"><feImage href=\"http://' + H + '/x.png\"/></filter>"
           "<rect width=\"9\" height=\"9\" filter=\"url(#f' + P + ')\"/>')"},
    WayOut{"background", "tag('p', {style: 'background: url(http://' + H + '/x.png)'})"},
    WayOut{"background attribute", "tag('table', {background: 'http://' + H + '/x.png'})"},
    WayOut{"list mark", "tag('li', {style: 'list-style-image: url(http://' + H + '/x.png)'})"},
    WayOut{"border picture",
           "tag('p', {style: 'border: 9px solid; border-image: url(http://' + H + '/x.png) 9'})"},
    WayOut{"content of a style", "tag('b', {style: 'content: url(http://' + H + '/x.png)'})"},
    WayOut{"mask", "tag('p', {style: '-webkit-mask-image: url(http://' + H + '/x.png)'}).textContent = 'x'"},
    WayOut{"filter of a style",
           "tag('p', {style: 'filter: url(http://' + H + '/x.svg#a)'}).textContent = 'x'", Plain::never},
    WayOut{"shape", "tag('p', {style: 'float: left; shape-outside: url(http://' + H + '/x.png)'})"},
    WayOut{"mouse pointer", "tag('p', {style: 'cursor: url(http://' + H + '/x.cur), auto'})"},
    WayOut{"style sheet", "tag('link', {rel: 'stylesheet', href: 'http://' + H + '/x.css'})"},
    WayOut{"import in a style", "style('@import url(http://' + H + '/x.css)')"},
    WayOut{"font of a style", "style('@font-face{font-family:f' + P + ';src:url(http://' + H + '/x.woff)}'); "
                              "tag('p', {style: 'font-family: f' + P}).textContent = 'x'"},
    WayOut{"font by script", "new FontFace('x', 'url(http://' + H + '/x.woff)').load()"},
    WayOut{"script", "tag('script', {src: 'http://' + H + '/x.js'})"},
    WayOut{"module", "tag('script', {type: 'module', src: 'http://' + H + '/x.js'})"},
    WayOut{"import", "return import('http://' + H + '/x.js')"},
    WayOut{"frame", "tag('iframe', {src: 'http://' + H + '/x'})"},
    WayOut{"picture in a written frame", "frame('<img src=\"http://' + H + '/x.png\">')"},
    WayOut{"picture in a frame of data",
           "tag('iframe', {src: 'data:text/html,<img src=\"http://' + H + '/x.png\">'})"},
    WayOut{"refresh in a frame",
           "frame('<meta http-equiv=\"refresh\" content=\"0;url=http://' + H + '/x\">')"},
    WayOut{"frame that goes away", "frame('<script>location = \"http://' + H + '/x\"<\\/script>')"},
    WayOut{"object", "tag('object', {data: 'http://' + H + '/x'})"},
    WayOut{"embedded object", "tag('embed', {src: 'http://' + H + '/x.html'})"},
    WayOut{"film", "tag('video', {src: 'http://' + H + '/x.mp4', preload: 'auto'})"},
    WayOut{"still of a film", "tag('video', {poster: 'http://' + H + '/x.png'})"},
    WayOut{"sound", "new Audio('http://' + H + '/x.mp3').load()"},
    WayOut{"subtitles", "tag('track', {default: '', src: 'http://' + H + '/x.vtt'}, "
                        "tag('video', {crossorigin: 'anonymous', src: 'x.mp4'})).track.mode = 'showing'"},
    WayOut{"prefetch", "tag('link', {rel: 'prefetch', href: 'http://' + H + '/x'})"},
    WayOut{"preload", "tag('link', {rel: 'preload', as: 'image', href: 'http://' + H + '/x.png'})"},
    WayOut{"module preload", "tag('link', {rel: 'modulepreload', href: 'http://' + H + '/x.js'})"},
    WayOut{"preconnect", "tag('link', {rel: 'preconnect', href: 'http://' + H})", Plain::never},
    WayOut{"look-up ahead", "tag('link', {rel: 'dns-prefetch', href: 'http://' + H})", Plain::ifNamed},
    WayOut{"prerender", "tag('link', {rel: 'prerender', href: 'http://' + H + '/x'})", Plain::never},
    WayOut{"icon", "tag('link', {rel: 'icon', href: 'http://' + H + '/x.ico'}, document.head)", Plain::never},
    WayOut{"manifest", "tag('link', {rel: 'manifest', href: 'http://' + H + '/x'}, document.head)",
           Plain::never},
    WayOut{"speculation",
           "tag('script', {type: 'speculationrules'}).textContent = JSON.stringify({prefetch: "
           "[{source: 'list', urls: ['https://' + H + '/x']}]})",
           Plain::never},
    WayOut{"fetch", "return fetch('http://' + H + '/x', {mode: 'no-cors'})"},
    WayOut{"fetch that stays alive",
           "return fetch('http://' + H + '/x', {mode: 'no-cors', keepalive: true})"},
    WayOut{"request", "var x = new XMLHttpRequest(); x.open('GET', 'http://' + H + '/x'); x.send()"},
    WayOut{"beacon", "navigator.sendBeacon('http://' + H + '/x', 'data')"},
    WayOut{"event source", "new EventSource('http://' + H + '/x')"},
    WayOut{"cache", "return caches.open('c').then(function (c) { return c.add('http://' + H + '/x'); })",
           Plain::never},
    WayOut{"socket", "new WebSocket('ws://' + H + '/x')"},
    WayOut{"socket with TLS", "new WebSocket('wss://' + H + '/x')"},
    WayOut{"transport", "return new WebTransport('https://' + H + '/x').ready"},
    WayOut{"form into a frame",
           "var f = tag('iframe', {name: 'f' + P}); tag('form', {action: 'http://' + H + "
           "'/x', method: 'post', target: 'f' + P}).submit()"},
    WayOut{"ping of a link", "tag('a', {href: '#' + P, ping: 'http://' + H + '/x'}).click()"},
    WayOut{"ping of a download",
           "tag('a', {href: 'data:,x', download: 'x', ping: 'http://' + H + '/x'}).click()"},
    WayOut{"download", "tag('a', {href: 'http://' + H + '/x', download: 'x'}).click()"},
    WayOut{"other window", "open('http://' + H + '/x')"},
    WayOut{"other window, unknown to this", "open('http://' + H + '/x', '', 'noopener')"},
    WayOut{"link to another window", "tag('a', {href: 'http://' + H + '/x', target: '_blank'}).click()"},
    WayOut{"worker", "new Worker('http://' + H + '/x.js')", Plain::never},
    WayOut{"shared worker", "new SharedWorker('http://' + H + '/x.js')", Plain::never},
    WayOut{"service worker", "return navigator.serviceWorker.register('http://' + H + '/x.js')",
           Plain::never},
    WayOut{"worklet", "return CSS.paintWorklet.addModule('http://' + H + '/x.js')", Plain::never},
    WayOut{"sound worklet", "return new AudioContext().audioWorklet.addModule('http://' + H + '/x.js')"},
    WayOut{"fetch of a worker", "work('fetch(\"http://' + H + '/x\", {mode: \"no-cors\"})')"},
    WayOut{"script of a worker", "work('importScripts(\"http://' + H + '/x.js\")')"},
    WayOut{"socket of a worker", "work('new WebSocket(\"ws://' + H + '/x\")')"},
    WayOut{"transport of a worker", "work('new WebTransport(\"https://' + H + '/x\")')"},
    WayOut{"document type with an address", "frame('<?xml-stylesheet href=\"http://' + H + '/x.xsl\"?>')",
           Plain::never},
    WayOut{"style sheet of XML",
           "tag('iframe', {src: 'data:text/xml,<?xml-stylesheet type=\"text/xsl\" href=\"http://' + H + "
           "'/x.xsl\"?><a/>'})",
           Plain::never},
    WayOut{"payment",
           "return new PaymentRequest([{supportedMethods: 'https://' + H + '/x'}], "
           "{total: {label: 'x', amount: {currency: 'EUR', value: '1'}}}).canMakePayment()",
           Plain::never},
    WayOut{"file server", "tag('img', {src: 'file://' + N + '/x.png'})", Plain::never},
    WayOut{"FTP", "tag('img', {src: 'ftp://' + H + '/x.png'})", Plain::never},
    WayOut{"STUN", "return peer([{urls: 'stun:' + H}])"},
    WayOut{"TURN", "return peer([{urls: 'turn:' + H, username: 'u', credential: 'c'}])"},
    WayOut{"TURN over TCP",
           "return peer([{urls: 'turn:' + H + '?transport=tcp', username: 'u', credential: 'c'}])"},
    WayOut{"TURN over TLS",
           "return peer([{urls: 'turns:' + H + '?transport=tcp', username: 'u', credential: 'c'}])"},
    WayOut{"candidate for UDP", "return meet('udp 2113937151 ' + N + ' ' + P + ' typ host')"},
    WayOut{"candidate for TCP", "return meet('tcp 2105524479 ' + N + ' ' + P + ' typ host tcptype passive')"},
    WayOut{"candidate in the local net", "return meet('udp 2113937151 w' + P + '.local ' + P + ' typ host')",
           Plain::never},
};

/// What takes a page away, if it can: each is tried alone.
inline constexpr std::array waysAway{
    WayOut{"location", "location = 'http://' + H + '/x'"},
    WayOut{"replaced location", "location.replace('http://' + H + '/x')"},
    WayOut{"link", "tag('a', {href: 'http://' + H + '/x.htm'}).click()"},
    WayOut{"form", "tag('form', {action: 'http://' + H + '/x.htm'}).submit()"},
    WayOut{"posted form", "tag('form', {action: 'http://' + H + '/x.htm', method: 'post'}).submit()"},
    WayOut{"refresh", "tag('meta', {'http-equiv': 'refresh', content: '0;url=http://' + H + '/x.htm'})"},
    WayOut{"frame's top", "frame('<script>top.location = \"http://' + H + '/x.htm\"<\\/script>')"},
    WayOut{"frame's link for the top", "frame('<a id=\"a\" target=\"_top\" href=\"http://' + H + "
                                       "'/x.htm\"></a><script>a.click()<\\/script>')"},
    WayOut{"mail", "location = 'mailto:a@' + N + '?subject=x.htm'", Plain::never},
};

}
