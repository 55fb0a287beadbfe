// The operating system's ICMP echo. An unprivileged ICMP socket (SOCK_DGRAM,
// IPPROTO_ICMP) is tried first; where the system allows it only to some groups, a raw
// socket is tried, which a privileged process may open. The wait for the reply is cut
// into short slices with a yield between them.

#include "directory/NetworkPorts.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/ip.h>
#include <netinet/ip_icmp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace twk {

namespace {

constexpr int kSliceMs = 10;
constexpr std::uint8_t kEchoRequest = 8;
constexpr std::uint8_t kEchoReply = 0;
constexpr std::uint8_t kDestinationUnreachable = 3;

std::uint16_t checksum(const std::uint8_t* data, std::size_t size) {
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        sum += static_cast<std::uint32_t>(data[i] << 8 | data[i + 1]);
    if (size % 2 != 0)
        sum += static_cast<std::uint32_t>(data[size - 1] << 8);
    while (sum >> 16)
        sum = (sum & 0xFFFF) + (sum >> 16);
    return static_cast<std::uint16_t>(~sum);
}

bool icmpEchoResolve(const QString& address, in_addr& out) {
    const QByteArray text = address.trimmed().toLatin1();
    if (inet_pton(AF_INET, text.constData(), &out) == 1)
        return true;
    addrinfo hints{};
    hints.ai_family = AF_INET;
    addrinfo* found = nullptr;
    if (getaddrinfo(text.constData(), nullptr, &hints, &found) != 0 || found == nullptr)
        return false;
    out = reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr;
    freeaddrinfo(found);
    return true;
}

class Socket {
public:
    Socket() {
        fd_ = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, IPPROTO_ICMP);
        if (fd_ < 0) {
            fd_ = ::socket(AF_INET, SOCK_RAW | SOCK_CLOEXEC, IPPROTO_ICMP);
            raw_ = fd_ >= 0;
        }
    }
    ~Socket() {
        if (fd_ >= 0)
            ::close(fd_);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    int fd() const { return fd_; }
    bool raw() const { return raw_; }

private:
    int fd_ = -1;
    bool raw_ = false;
};

class SystemEcho final : public EchoPort {
public:
    EchoReply Echo(const QString& address, int payloadBytes, int timeoutMs,
                   const std::function<void()>& yield) override {
        EchoReply reply;
        in_addr target{};
        if (!icmpEchoResolve(address, target)) {
            reply.status = echostatus::kBadDestination;
            return reply;
        }
        Socket socket;
        if (socket.fd() < 0) {
            reply.status = echostatus::kNoSocket;
            return reply;
        }
        const std::size_t size = static_cast<std::size_t>(std::max(0, payloadBytes));
        std::vector<std::uint8_t> packet(sizeof(icmphdr) + size);
        auto* header = reinterpret_cast<icmphdr*>(packet.data());
        header->type = kEchoRequest;
        header->code = 0;
        const auto id = static_cast<std::uint16_t>(QRandomGenerator::global()->generate());
        const auto sequence = static_cast<std::uint16_t>(QRandomGenerator::global()->generate());
        header->un.echo.id = htons(id);
        header->un.echo.sequence = htons(sequence);
        std::uint8_t* payload = packet.data() + sizeof(icmphdr);
        for (std::size_t i = 0; i < size; ++i)
            payload[i] = static_cast<std::uint8_t>(QRandomGenerator::global()->bounded(1, 255));
        header->checksum = 0;
        header->checksum = htons(checksum(packet.data(), packet.size()));

        sockaddr_in to{};
        to.sin_family = AF_INET;
        to.sin_addr = target;
        QElapsedTimer timer;
        timer.start();
        if (::sendto(socket.fd(), packet.data(), packet.size(), 0,
                     reinterpret_cast<const sockaddr*>(&to), sizeof to) < 0) {
            reply.status = echostatus::kUnreachable;
            return reply;
        }
        std::vector<std::uint8_t> in(65536);
        while (timer.elapsed() < timeoutMs) {
            pollfd wait{socket.fd(), POLLIN, 0};
            const int slice =
                static_cast<int>(std::min<qint64>(kSliceMs, timeoutMs - timer.elapsed()));
            if (::poll(&wait, 1, std::max(slice, 0)) > 0) {
                sockaddr_in from{};
                socklen_t fromSize = sizeof from;
                const ssize_t got = ::recvfrom(socket.fd(), in.data(), in.size(), 0,
                                               reinterpret_cast<sockaddr*>(&from), &fromSize);
                if (got > 0 && take(in.data(), static_cast<std::size_t>(got), socket.raw(), from,
                                    target, id, sequence, payload, size, reply)) {
                    reply.roundTripMs = static_cast<int>(timer.elapsed());
                    return reply;
                }
            }
            if (yield)
                yield();
        }
        reply.status = echostatus::kTimedOut;
        return reply;
    }

private:
    // Looks at one received packet; true when it answers our echo.
    static bool take(const std::uint8_t* data, std::size_t size, bool raw, const sockaddr_in& from,
                     const in_addr& target, std::uint16_t id, std::uint16_t sequence,
                     const std::uint8_t* payload, std::size_t payloadSize, EchoReply& reply) {
        if (raw) {
            if (size < sizeof(iphdr))
                return false;
            const std::size_t ipLength = static_cast<std::size_t>(data[0] & 0x0F) * 4;
            if (ipLength < sizeof(iphdr) || size < ipLength)
                return false;
            data += ipLength;
            size -= ipLength;
        }
        if (size < sizeof(icmphdr))
            return false;
        icmphdr header{};
        std::memcpy(&header, data, sizeof header);
        if (header.type == kDestinationUnreachable && raw) {
            reply.status = echostatus::kUnreachable;
            return false;
        }
        if (header.type != kEchoReply || from.sin_addr.s_addr != target.s_addr)
            return false;
        // A raw socket sees every reply of the machine; an ICMP socket only its own.
        if (raw && ntohs(header.un.echo.id) != id)
            return false;
        if (ntohs(header.un.echo.sequence) != sequence)
            return false;
        const std::uint8_t* echoed = data + sizeof(icmphdr);
        const std::size_t echoedSize = size - sizeof(icmphdr);
        reply.replied = true;
        reply.status = 0;
        reply.sameData =
            echoedSize >= payloadSize && std::memcmp(echoed, payload, payloadSize) == 0;
        return true;
    }
};

} // namespace

EchoPort& systemEcho() {
    static SystemEcho echo;
    return echo;
}

} // namespace twk
