#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace plix {

/// A socket of the service's, answered by the test's hand.
class SpeechListener {
public:
    enum class Manner {
        Silent, ///< each text gets a number, and nothing begins
        Speaking, ///< and is spoken at once
    };

    explicit SpeechListener(std::string const& path, Manner manner = Manner::Silent)
        : m_manner(manner)
    {
        sockaddr_un address {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(m_descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(m_descriptor, 8), 0);
    }
    ~SpeechListener()
    {
        for (auto const& client : m_clients)
            ::close(client.descriptor);
        ::close(m_descriptor);
    }
    SpeechListener(SpeechListener const&) = delete;
    SpeechListener& operator=(SpeechListener const&) = delete;

    /// Answers all that was asked.
    void answer()
    {
        if (int const client = ::accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK); client >= 0)
            m_clients.push_back({ client, {} });
        for (auto& client : m_clients)
            answer(client);
    }
    void send(std::size_t client, std::string const& bytes) { write(m_clients.at(client).descriptor, bytes); }
    std::size_t clientCount() const { return m_clients.size(); }
    /// The texts that came, in order.
    std::vector<std::string> const& texts() const { return m_texts; }

private:
    struct Client {
        int descriptor;
        std::string rest;
        bool isTakingText { false };
    };

    void answer(Client& client)
    {
        char bytes[4096];
        for (auto size = ::recv(client.descriptor, bytes, sizeof bytes, 0); size > 0;
             size = ::recv(client.descriptor, bytes, sizeof bytes, 0))
            client.rest.append(bytes, static_cast<std::size_t>(size));
        for (auto end = client.rest.find("\r\n"); end != std::string::npos; end = client.rest.find("\r\n")) {
            auto const line = client.rest.substr(0, end);
            client.rest.erase(0, end + 2);
            answer(client, line);
        }
    }
    void answer(Client& client, std::string const& line)
    {
        if (client.isTakingText && line != ".") {
            m_texts.push_back(line);
        } else if (client.isTakingText) {
            client.isTakingText = false;
            auto const number = std::to_string(m_texts.size());
            write(client.descriptor, "225-" + number + "\r\n225 OK\r\n");
            if (m_manner == Manner::Speaking)
                write(client.descriptor, event("701", number, "BEGIN") + event("702", number, "END"));
        } else {
            client.isTakingText = line == "SPEAK";
            write(client.descriptor, client.isTakingText ? "230 OK\r\n" : "200 OK\r\n");
        }
    }
    static std::string event(std::string const& code, std::string const& message, std::string const& name)
    {
        return code + '-' + message + "\r\n" + code + "-1\r\n" + code + ' ' + name + "\r\n";
    }
    static void write(int descriptor, std::string const& bytes) { ::send(descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL); }

    Manner m_manner;
    int m_descriptor { ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0) };
    std::vector<Client> m_clients;
    std::vector<std::string> m_texts;
};

}
