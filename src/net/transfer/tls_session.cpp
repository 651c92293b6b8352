#include "net/transfer/tls_session.h"

#include <algorithm>
#include <climits>

#include "net/transfer/ip_address.h"
#include "net/transfer/stream_socket.h"
#include "net/transfer/tls_library.h"

namespace morvex {
namespace {

int ReadSocket(BIO* bio, char* buffer, int length) {
  auto* const socket = static_cast<StreamSocket*>(TlsLibrary::Get()->bioData(bio));
  return static_cast<int>(socket->Receive(buffer, static_cast<std::size_t>(length)));
}

int WriteSocket(BIO* bio, const char* buffer, int length) {
  auto* const socket = static_cast<StreamSocket*>(TlsLibrary::Get()->bioData(bio));
  return static_cast<int>(socket->Send(buffer, static_cast<std::size_t>(length)));
}

// Nothing is kept back, so there is never anything to flush.
long ControlSocket(BIO*, int command, long, void*) {
  return command == BIO_CTRL_FLUSH ? 1 : 0;
}

BIO_METHOD* MakeSocketMethod(const TlsLibrary& tls) {
  BIO_METHOD* const method = tls.newBioMethod(tls.newBioIndex() | BIO_TYPE_SOURCE_SINK, "morvex socket");
  if (method == nullptr) return nullptr;
  tls.setBioRead(method, &ReadSocket);
  tls.setBioWrite(method, &WriteSocket);
  tls.setBioControl(method, &ControlSocket);
  return method;
}

BIO* MakeBio(const TlsLibrary& tls, StreamSocket& socket) {
  static BIO_METHOD* const method = MakeSocketMethod(tls);
  BIO* const bio = method == nullptr ? nullptr : tls.newBio(method);
  if (bio == nullptr) return nullptr;
  tls.setBioData(bio, &socket);
  tls.setBioReady(bio, 1);
  return bio;
}

SSL_CTX* MakeContext(const TlsLibrary& tls, bool verifyPeer) {
  SSL_CTX* const context = tls.newContext(tls.clientMethod());
  if (context == nullptr) return nullptr;
  tls.controlContext(context, SSL_CTRL_SET_READ_AHEAD, 1, nullptr);
  if (verifyPeer) tls.useSystemStore(context);
  return context;
}

// One of each kind, for the whole process; the store is read only if a peer is to be verified.
SSL_CTX* SharedContext(const TlsLibrary& tls, bool verifyPeer) {
  if (verifyPeer) {
    static SSL_CTX* const verifying = MakeContext(tls, true);
    return verifying;
  }
  static SSL_CTX* const trusting = MakeContext(tls, false);
  return trusting;
}

// Says whom we want to speak with, and has it checked if need be.
bool NamePeer(const TlsLibrary& tls, SSL* session, const std::string& host, bool verifyPeer) {
  const bool isAddress = IsIPAddress(host);
  if (!isAddress) {
    tls.control(session, SSL_CTRL_SET_TLSEXT_HOSTNAME, TLSEXT_NAMETYPE_host_name,
                const_cast<char*>(host.c_str()));
  }
  if (!verifyPeer) return true;
  tls.setVerify(session, SSL_VERIFY_PEER, nullptr);
  return isAddress ? tls.setAddress(tls.parameters(session), host.c_str()) == 1
                   : tls.setHost(session, host.c_str()) == 1;
}

std::string HandshakeFailure(const TlsLibrary& tls, SSL* session, bool verifyPeer) {
  const long verdict = tls.verifyResult(session);
  if (verifyPeer && verdict != X509_V_OK)
    return std::string("the certificate isn't trusted: ") + tls.verifyText(verdict);
  const char* const reason = tls.errorText(tls.peekError());
  return std::string("the TLS handshake failed") + (reason == nullptr ? "" : std::string(": ") + reason);
}

int Clamp(std::size_t length) {
  return static_cast<int>(std::min<std::size_t>(length, INT_MAX));
}

}  // namespace

std::unique_ptr<TlsSession> TlsSession::Start(StreamSocket& socket, const std::string& host, bool verifyPeer,
                                              std::string& failure) {
  failure = "OpenSSL 3 isn't installed";
  const TlsLibrary* const tls = TlsLibrary::Get();
  if (tls == nullptr) return nullptr;
  failure = "TLS can't be started";
  SSL_CTX* const context = SharedContext(*tls, verifyPeer);
  SSL* const session = context == nullptr ? nullptr : tls->newSession(context);
  if (session == nullptr) return nullptr;
  std::unique_ptr<TlsSession> result(new TlsSession(session));
  BIO* const bio = MakeBio(*tls, socket);
  if (bio == nullptr) return nullptr;
  tls->setBio(session, bio, bio);  // which takes it over
  if (!NamePeer(*tls, session, host, verifyPeer)) return nullptr;
  tls->clearErrors();
  if (tls->connect(session) != 1) {
    failure = HandshakeFailure(*tls, session, verifyPeer);
    return nullptr;
  }
  failure.clear();
  return result;
}

TlsSession::~TlsSession() {
  TlsLibrary::Get()->freeSession(session_);
}

std::ptrdiff_t TlsSession::Read(void* buffer, std::size_t length) {
  TlsLibrary::Get()->clearErrors();
  return Result(TlsLibrary::Get()->read(session_, buffer, Clamp(length)));
}

std::ptrdiff_t TlsSession::Peek(void* buffer, std::size_t length) {
  TlsLibrary::Get()->clearErrors();
  return Result(TlsLibrary::Get()->peek(session_, buffer, Clamp(length)));
}

std::ptrdiff_t TlsSession::Write(const void* buffer, std::size_t length) {
  TlsLibrary::Get()->clearErrors();
  return Result(TlsLibrary::Get()->write(session_, buffer, Clamp(length)));
}

void TlsSession::End() {
  if (broken_) return;
  TlsLibrary::Get()->clearErrors();
  TlsLibrary::Get()->shutdown(session_);
}

// What the library calls an error for good leaves a session that mustn't be used any more.
std::ptrdiff_t TlsSession::Result(int got) {
  if (got > 0) return got;
  if (TlsLibrary::Get()->errorOf(session_, got) == SSL_ERROR_ZERO_RETURN) return 0;
  broken_ = true;
  return -1;
}

}  // namespace morvex
