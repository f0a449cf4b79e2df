// A server that knows no HTTP: it records the bytes of every connection and answers with the bytes that the test
// wrote, cut, delayed or broken as the test wants.
//
// Listens on 127.0.0.1 at a port of the system's choice; one connection at a time, in a thread of its own. The first
// connection plays the first script and so on; when they run out, the last one is played again.
#pragma once

#include <winsock2.h>

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace crashvane {

constexpr std::size_t WHOLE_REQUEST = static_cast<std::size_t>(-1);

struct Script {
    std::string strAnswer;
    std::size_t uRead = WHOLE_REQUEST;  // bytes of the request to read before answering
    bool bReset = false;                // end the connection with a reset
    std::size_t uPiece = 0;             // send the answer in pieces of so many bytes (0: at once) ...
    DWORD dwPause = 0;                  // ... with so many milliseconds before each
};

// "HTTP/1.1 200 OK" with the body's true length.
inline Script Answer(const std::string& strBody, const std::string& strStatus = "200 OK",
                     const std::string& strHeaders = "") {
    return {"HTTP/1.1 " + strStatus + "\r\nContent-Length: " + std::to_string(strBody.size()) +
            "\r\nConnection: close\r\n" + strHeaders + "\r\n" + strBody};
}

// The same without the length, or with headers that lie.
inline Script RawAnswer(const std::string& strHeaders, const std::string& strBody) {
    return {"HTTP/1.1 200 OK\r\nConnection: close\r\n" + strHeaders + "\r\n" + strBody};
}

class RawServer {
  public:
    explicit RawServer(std::vector<Script> Scripts) : m_Scripts(std::move(Scripts)) {
        WSADATA Data = {};
        sockaddr_in Address = {};
        int nLength = sizeof(Address);
        WSAStartup(MAKEWORD(2, 2), &Data);
        m_hListener = socket(AF_INET, SOCK_STREAM, 0);
        Address.sin_family = AF_INET;
        Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (bind(m_hListener, reinterpret_cast<sockaddr*>(&Address), nLength) != 0 || listen(m_hListener, 16) != 0 ||
            getsockname(m_hListener, reinterpret_cast<sockaddr*>(&Address), &nLength) != 0) {
            std::abort();
        }
        m_nPort = ntohs(Address.sin_port);
        m_Thread = std::thread([this] { Serve(); });
    }
    explicit RawServer(Script Only) : RawServer(std::vector<Script>{std::move(Only)}) {}
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;
    ~RawServer() {
        Stop();
        WSACleanup();
    }

    [[nodiscard]] int Port() const { return m_nPort; }
    [[nodiscard]] std::string Host() const { return "127.0.0.1:" + std::to_string(m_nPort); }
    [[nodiscard]] std::string Url(const std::string& strPath = "/") const { return "http://" + Host() + strPath; }
    [[nodiscard]] std::wstring WideUrl(const std::string& strPath = "/") const {
        const std::string strUrl = Url(strPath);
        return std::wstring(strUrl.begin(), strUrl.end());
    }

    // Ends the thread; what each connection sent, as far as it was read.
    std::vector<std::string> Stop() {
        if (m_Thread.joinable()) {
            m_bStop = true;
            // Wakes the thread, which may be waiting for a connection.
            const SOCKET hWake = socket(AF_INET, SOCK_STREAM, 0);
            sockaddr_in Address = {};
            Address.sin_family = AF_INET;
            Address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            Address.sin_port = htons(static_cast<u_short>(m_nPort));
            connect(hWake, reinterpret_cast<sockaddr*>(&Address), sizeof(Address));
            m_Thread.join();
            closesocket(hWake);
            closesocket(m_hListener);
        }
        return m_Requests;
    }

    // The only request of a server that has done its work.
    std::string Request() {
        const std::vector<std::string> Requests = Stop();
        return Requests.size() == 1 ? Requests[0] : std::to_string(Requests.size()) + " requests";
    }

  private:
    void Serve() {
        for (;;) {
            const SOCKET hClient = accept(m_hListener, nullptr, nullptr);
            if (hClient == INVALID_SOCKET) {
                return;
            }
            // What was sent before the stop is still served: the waking connection stands behind it in the queue, and
            // is told apart by sending nothing.
            if (m_bStop && !HasData(hClient)) {
                closesocket(hClient);
                return;
            }
            const Script& Play = m_Scripts[(std::min)(m_Requests.size(), m_Scripts.size() - 1)];
            m_Requests.push_back(Receive(hClient, Play.uRead));
            SendAnswer(hClient, Play);
            Hang(hClient, Play.bReset);
        }
    }

    static bool HasData(SOCKET hClient) {
        fd_set Sockets;
        FD_ZERO(&Sockets);
        FD_SET(hClient, &Sockets);
        timeval Soon = {0, 0};
        return select(0, &Sockets, nullptr, nullptr, &Soon) == 1;
    }

    static std::size_t ContentLength(const std::string& strHead) {
        const std::string::size_type uAt = strHead.find("Content-Length: ");
        return uAt == std::string::npos ? 0 : std::strtoul(strHead.c_str() + uAt + 16, nullptr, 10);
    }

    // Until the request's own length is reached, or so many bytes, or the client has nothing more to say.
    static std::string Receive(SOCKET hClient, std::size_t uLimit) {
        std::string strRequest;
        std::size_t uWanted = uLimit;
        std::string Buffer(65536, '\0');
        while (strRequest.size() < uWanted) {
            const std::size_t uMost = (std::min)(Buffer.size(), uWanted - strRequest.size());
            const int nRead = recv(hClient, Buffer.data(), static_cast<int>(uMost), 0);
            if (nRead <= 0) {
                break;
            }
            strRequest.append(Buffer, 0, static_cast<std::size_t>(nRead));
            const std::string::size_type uHead =
                uWanted == WHOLE_REQUEST ? strRequest.find("\r\n\r\n") : std::string::npos;
            if (uHead != std::string::npos) {
                uWanted = uHead + 4 + ContentLength(strRequest.substr(0, uHead));
            }
        }
        return strRequest;
    }

    static void SendAnswer(SOCKET hClient, const Script& Play) {
        const std::size_t uPiece = Play.uPiece == 0 ? Play.strAnswer.size() : Play.uPiece;
        std::size_t uSent = 0;
        while (uSent < Play.strAnswer.size()) {
            Sleep(Play.dwPause);
            const std::size_t uMost = (std::min)(uPiece, Play.strAnswer.size() - uSent);
            const int nSent = send(hClient, Play.strAnswer.data() + uSent, static_cast<int>(uMost), 0);
            if (nSent <= 0) {
                return;
            }
            uSent += static_cast<std::size_t>(nSent);
        }
    }

    // A plain end waits until the client has closed too, since a reset on unread bytes could overtake the answer.
    static void Hang(SOCKET hClient, bool bReset) {
        char Rest[4096];
        const DWORD dwPatience = 1000;  // a client may keep its connection for the next request
        setsockopt(hClient, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<const char*>(&dwPatience), sizeof(dwPatience));
        if (bReset) {
            const linger Now = {1, 0};
            setsockopt(hClient, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&Now), sizeof(Now));
        } else {
            shutdown(hClient, SD_SEND);
            while (recv(hClient, Rest, sizeof(Rest), 0) > 0) {
            }
        }
        closesocket(hClient);
    }

    std::vector<Script> m_Scripts;
    std::vector<std::string> m_Requests;
    SOCKET m_hListener = INVALID_SOCKET;
    int m_nPort = 0;
    volatile bool m_bStop = false;
    std::thread m_Thread;
};

// The part of a request behind its head.
inline std::string BodyOf(const std::string& strRequest) {
    const std::string::size_type uAt = strRequest.find("\r\n\r\n");
    return uAt == std::string::npos ? std::string() : strRequest.substr(uAt + 4);
}

// The first line of a request, without its line end.
inline std::string FirstLineOf(const std::string& strRequest) {
    return strRequest.substr(0, strRequest.find("\r\n"));
}

}  // namespace crashvane
