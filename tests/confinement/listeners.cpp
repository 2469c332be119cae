#include "tests/confinement/listeners.h"

#include "tests/confinement/private_network.h"

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QTcpSocket>

#include <cstdlib>
#include <utility>

namespace confinement {
namespace {

constexpr quint16 namesPort = 53;
constexpr quint16 multicastPort = 5353;
constexpr qsizetype headLength = 12; // of a name server's message

constexpr const char* reply = "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n"
                              "Access-Control-Allow-Origin: *\r\n\r\n";

// The first label, "w12" of "w12.outside.test".
std::string firstLabel(const QByteArray& question) {
    const auto length = question.size() > headLength ? question.at(headLength) : 0;
    return question.mid(headLength + 1, length).toStdString();
}

// An address for every name; other records exist for none.
QByteArray answerTo(const QByteArray& question) {
    const auto nameEnd = question.indexOf('\0', headLength);
    if (nameEnd < 0)
        return {};
    auto answer = question.left(nameEnd + 5);
    const bool asksAddress = question.at(nameEnd + 2) == 1;
    answer[2] = static_cast<char>(0x81);
    answer[3] = static_cast<char>(0x80);
    answer.replace(6, 6, QByteArray::fromHex(asksAddress ? "000100000000" : "000000000000"));
    if (asksAddress)
        answer += QByteArray::fromHex("c00c00010001000000010004c0000201");
    return answer;
}

}

Listeners::Listeners(std::vector<std::string> ways) : m_ways(std::move(ways)) {
    for (std::size_t way = 0; way < m_ways.size(); ++way)
        listen(way);
    m_allReady &= m_names.bind(QHostAddress(ownAddress), namesPort);
    connect(&m_names, &QUdpSocket::readyRead, this, &Listeners::answerLookUp);
    m_allReady &= m_multicast.bind(QHostAddress::AnyIPv4, multicastPort,
                                   QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint);
    m_multicast.joinMulticastGroup(QHostAddress("224.0.0.251"), QNetworkInterface::interfaceFromName("here"));
    connect(&m_multicast, &QUdpSocket::readyRead, this, [this] {
        m_multicast.receiveDatagram();
        m_heard.insert("(multicast look-up)");
    });
}

void Listeners::listen(std::size_t way) {
    const auto port = static_cast<quint16>(firstPort + way);
    auto* server = m_servers.emplace_back(std::make_unique<QTcpServer>()).get();
    connect(server, &QTcpServer::newConnection, this,
            [this, server, way] { answerConnection(*server, m_ways[way]); });
    auto* socket = m_sockets.emplace_back(std::make_unique<QUdpSocket>()).get();
    connect(socket, &QUdpSocket::readyRead, this, [this, socket, way] {
        socket->receiveDatagram();
        m_heard.insert(m_ways[way]);
    });
    m_allReady &= server->listen(QHostAddress::AnyIPv4, port) && socket->bind(QHostAddress::AnyIPv4, port);
}

void Listeners::answerConnection(QTcpServer& server, const std::string& way) {
    m_heard.insert(way);
    while (auto* connection = server.nextPendingConnection()) {
        connect(connection, &QTcpSocket::readyRead, connection, [connection] {
            connection->readAll();
            connection->write(reply);
            connection->disconnectFromHost();
        });
        connect(connection, &QTcpSocket::disconnected, connection, &QObject::deleteLater);
    }
}

void Listeners::answerLookUp() {
    while (m_names.hasPendingDatagrams()) {
        const auto question = m_names.receiveDatagram();
        const auto label = firstLabel(question.data());
        const auto way =
            label.starts_with('w') ? std::strtoul(label.c_str() + 1, nullptr, 10) : m_ways.size();
        m_heard.insert(way < m_ways.size() ? m_ways[way] + " (look-up)" : label + " (look-up)");
        m_names.writeDatagram(question.makeReply(answerTo(question.data())));
    }
}

}
