// SPDX-License-Identifier: MIT
#include "platform/session/activation_socket.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>
#include <span>

#include "platform/session/application_object.h"

namespace hearthmark::platform {

namespace {

// Of a token; what is longer is cut off.
constexpr std::size_t kLongest = 4096;

class Address {
 public:
    Address() = default;
    // In the name space of the kernel: it begins with a zero, and its length counts.
    explicit Address(const std::string& instance) {
        address_.sun_family = AF_UNIX;
        const std::string name = std::string(1, '\0') + kApplicationId + '/' + instance;
        const std::size_t length = std::min(name.size(), std::size(address_.sun_path));
        std::copy_n(name.data(), length, std::begin(address_.sun_path));
        length_ = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    }

    sockaddr* get() { return reinterpret_cast<sockaddr*>(&address_); }
    socklen_t& length() { return length_; }

 private:
    sockaddr_un address_{};
    socklen_t length_ = sizeof(sockaddr_un);
};

// With the identity of each sender. Negative where there is none.
int makeSocket() {
    const int descriptor = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    constexpr int kOn = 1;
    if (descriptor >= 0) {
        ::setsockopt(descriptor, SOL_SOCKET, SO_PASSCRED, &kOn, sizeof kOn);
    }
    return descriptor;
}

struct Datagram {
    std::string text;
    Address sender;
    bool isOfThisUser = false;
};

// Absent where none has come.
std::optional<Datagram> take(int descriptor) {
    Datagram datagram{std::string(kLongest, '\0'), {}, false};
    iovec text{datagram.text.data(), datagram.text.size()};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(ucred))> identity{};
    msghdr message{};
    message.msg_name = datagram.sender.get();
    message.msg_namelen = datagram.sender.length();
    message.msg_iov = &text;
    message.msg_iovlen = 1;
    message.msg_control = identity.data();
    message.msg_controllen = identity.size();
    const ssize_t length = ::recvmsg(descriptor, &message, MSG_CMSG_CLOEXEC);
    if (length < 0) {
        return std::nullopt;
    }
    datagram.text.resize(static_cast<std::size_t>(length));
    datagram.sender.length() = message.msg_namelen;
    const cmsghdr* const control = CMSG_FIRSTHDR(&message);
    if (control != nullptr && control->cmsg_type == SCM_CREDENTIALS) {
        ucred sender{};
        std::memcpy(&sender, CMSG_DATA(control), sizeof sender);
        datagram.isOfThisUser = sender.uid == ::geteuid();
    }
    return datagram;
}

ActivationAnswer ask(int descriptor, Address server, const std::string& activationToken,
                     std::chrono::milliseconds patience) {
    Address own;
    own.get()->sa_family = AF_UNIX;
    // A name of the kernel's choice, to be answered at.
    if (::bind(descriptor, own.get(), sizeof(sa_family_t)) != 0 ||
        ::connect(descriptor, server.get(), server.length()) != 0 ||
        ::send(descriptor, activationToken.data(), std::min(activationToken.size(), kLongest),
               MSG_NOSIGNAL) < 0) {
        return errno == ECONNREFUSED ? ActivationAnswer::noneListens : ActivationAnswer::none;
    }
    pollfd answer{descriptor, POLLIN, 0};
    if (::poll(&answer, 1, static_cast<int>(patience.count())) != 1) {
        return ActivationAnswer::none;
    }
    const std::optional<Datagram> taken = take(descriptor);
    return taken && taken->isOfThisUser ? ActivationAnswer::done : ActivationAnswer::none;
}

}  // namespace

ActivationSocket::ActivationSocket(const std::string& instance) : descriptor_(makeSocket()) {
    Address address(instance);
    if (descriptor_ < 0 || ::bind(descriptor_, address.get(), address.length()) != 0) {
        qWarning("Without a session bus no second start can bring the window back: %s",
                 std::strerror(errno));
        return;
    }
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &ActivationSocket::receive);
}

ActivationSocket::~ActivationSocket() {
    notifier_.reset();
    ::close(descriptor_);
}

void ActivationSocket::receive() {
    auto request = take(descriptor_);
    if (!request || !request->isOfThisUser) {
        return;
    }
    // It has its answer before anything is done that may take time.
    constexpr char kDone = 1;
    ::sendto(descriptor_, &kDone, sizeof kDone, MSG_NOSIGNAL, request->sender.get(),
             request->sender.length());
    emit activationRequested(QString::fromStdString(request->text));
}

ActivationAnswer activateOverSocket(const std::string& instance, const std::string& activationToken,
                                    std::chrono::milliseconds patience) {
    const int descriptor = makeSocket();
    const ActivationAnswer answer = ask(descriptor, Address(instance), activationToken, patience);
    ::close(descriptor);
    return answer;
}

}  // namespace hearthmark::platform
