#pragma once

#include <QObject>
#include <QTcpServer>
#include <QUdpSocket>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace confinement {

/// The outside world of a private network: a TCP and a UDP port for each way out, a name server that knows
/// every name, and an ear for multicast look-ups. Whatever arrives is written down under the way's name.
class Listeners final : public QObject {
public:
    /// Way i listens on `firstPort + i`; its host is called "w<i>.outside.test".
    static constexpr quint16 firstPort = 20000;

    explicit Listeners(std::vector<std::string> ways);

    /// What has been heard, "image, named" or "image, named (look-up)".
    [[nodiscard]] const std::set<std::string>& heard() const { return m_heard; }

    /// Something that begins like this has been.
    [[nodiscard]] bool hasHeard(const std::string& start) const {
        const auto found = m_heard.lower_bound(start);
        return found != m_heard.end() && found->starts_with(start);
    }

    /// Every port that was asked for is listened to.
    [[nodiscard]] bool allReady() const { return m_allReady; }

private:
    void listen(std::size_t way);
    void answerConnection(QTcpServer& server, const std::string& way);
    void answerLookUp();

    std::vector<std::string> m_ways;
    std::vector<std::unique_ptr<QTcpServer>> m_servers;
    std::vector<std::unique_ptr<QUdpSocket>> m_sockets;
    QUdpSocket m_names;
    QUdpSocket m_multicast;
    std::set<std::string> m_heard;
    bool m_allReady = true;
};

}
