#include "net/transfer/tls_session.h"

#include <algorithm>
#include <climits>

#include "net/transfer/ip_address.h"
#include "net/transfer/stream_socket.h"
#include "net/transfer/tls_library.h"

namespace morvex {
namespace {

// What one read of the socket may bring: several records, of up to 16 KiB each.
constexpr std::size_t kReadAhead = 128 * 1024;

int ReadSocket(BIO* bio, char* buffer, int length) {
  const TlsLibrary& tls = *TlsLibrary::Get();
  const auto* const wire = static_cast<const TlsWire*>(tls.bioData(bio));
  tls.clearBioFlags(bio, BIO_FLAGS_RWS | BIO_FLAGS_SHOULD_RETRY);
  if (wire->waits || wire->socket.HasData())
    return static_cast<int>(wire->socket.Receive(buffer, static_cast<std::size_t>(length)));
  tls.setBioFlags(bio, BIO_FLAGS_READ | BIO_FLAGS_SHOULD_RETRY);
  return -1;
}

int WriteSocket(BIO* bio, const char* buffer, int length) {
  const auto* const wire = static_cast<const TlsWire*>(TlsLibrary::Get()->bioData(bio));
  return static_cast<int>(wire->socket.Send(buffer, static_cast<std::size_t>(length)));
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

BIO* MakeBio(const TlsLibrary& tls, TlsWire& wire) {
  static BIO_METHOD* const method = MakeSocketMethod(tls);
  BIO* const bio = method == nullptr ? nullptr : tls.newBio(method);
  if (bio == nullptr) return nullptr;
  tls.setBioData(bio, &wire);
  tls.setBioReady(bio, 1);
  return bio;
}

SSL_CTX* MakeContext(const TlsLibrary& tls, bool verifyPeer) {
  SSL_CTX* const context = tls.newContext(tls.clientMethod());
  if (context == nullptr) return nullptr;
  tls.controlContext(context, SSL_CTRL_SET_READ_AHEAD, 1, nullptr);
  tls.setReadBuffer(context, kReadAhead);
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
  std::unique_ptr<TlsSession> result(new TlsSession(session, socket));
  BIO* const bio = MakeBio(*tls, result->wire_);
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

// The library brings one record at a time. Behind the one that is waited for go those that have come with it.
std::ptrdiff_t TlsSession::Read(void* buffer, std::size_t length) {
  char* const bytes = static_cast<char*>(buffer);
  std::ptrdiff_t got = ReadRecord(bytes, length);
  if (got <= 0) return got;
  std::size_t done = static_cast<std::size_t>(got);
  wire_.waits = false;
  while (got > 0 && done < length) {
    got = ReadRecord(bytes + done, length - done);
    if (got > 0) done += static_cast<std::size_t>(got);
  }
  wire_.waits = true;
  return static_cast<std::ptrdiff_t>(done);
}

std::ptrdiff_t TlsSession::ReadRecord(void* buffer, std::size_t length) {
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

// What the library calls an error for good leaves a session that mustn't be used any more. 0 where the stream has
// ended, and where no record has come and none is waited for.
std::ptrdiff_t TlsSession::Result(int got) {
  if (got > 0) return got;
  const int error = TlsLibrary::Get()->errorOf(session_, got);
  if (error == SSL_ERROR_ZERO_RETURN || error == SSL_ERROR_WANT_READ) return 0;
  broken_ = true;
  return -1;
}

}  // namespace morvex
