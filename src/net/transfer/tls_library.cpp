#include "net/transfer/tls_library.h"

#include <memory>

#include "engine/dynamic_library.h"

namespace morvex {
namespace {

bool BindSessions(const Nox::DynamicLibrary& library, TlsLibrary& tls) {
  return library.Bind("OPENSSL_init_ssl", tls.init) && library.Bind("TLS_client_method", tls.clientMethod) &&
         library.Bind("SSL_CTX_new", tls.newContext) && library.Bind("SSL_CTX_ctrl", tls.controlContext) &&
         library.Bind("SSL_CTX_set_default_read_buffer_len", tls.setReadBuffer) &&
         library.Bind("SSL_CTX_set_default_verify_paths", tls.useSystemStore) &&
         library.Bind("SSL_new", tls.newSession) && library.Bind("SSL_free", tls.freeSession) &&
         library.Bind("SSL_ctrl", tls.control) && library.Bind("SSL_set_bio", tls.setBio) &&
         library.Bind("SSL_connect", tls.connect) && library.Bind("SSL_read", tls.read) &&
         library.Bind("SSL_peek", tls.peek) && library.Bind("SSL_write", tls.write) &&
         library.Bind("SSL_shutdown", tls.shutdown) && library.Bind("SSL_get_error", tls.errorOf);
}

bool BindChecks(const Nox::DynamicLibrary& library, TlsLibrary& tls) {
  return library.Bind("SSL_set_verify", tls.setVerify) && library.Bind("SSL_set1_host", tls.setHost) &&
         library.Bind("SSL_get0_param", tls.parameters) &&
         library.Bind("X509_VERIFY_PARAM_set1_ip_asc", tls.setAddress) &&
         library.Bind("SSL_get_verify_result", tls.verifyResult) &&
         library.Bind("X509_verify_cert_error_string", tls.verifyText) &&
         library.Bind("ERR_clear_error", tls.clearErrors) && library.Bind("ERR_peek_error", tls.peekError) &&
         library.Bind("ERR_reason_error_string", tls.errorText);
}

bool BindBios(const Nox::DynamicLibrary& library, TlsLibrary& tls) {
  return library.Bind("BIO_get_new_index", tls.newBioIndex) &&
         library.Bind("BIO_meth_new", tls.newBioMethod) &&
         library.Bind("BIO_meth_set_read", tls.setBioRead) &&
         library.Bind("BIO_meth_set_write", tls.setBioWrite) &&
         library.Bind("BIO_meth_set_ctrl", tls.setBioControl) && library.Bind("BIO_new", tls.newBio) &&
         library.Bind("BIO_set_data", tls.setBioData) && library.Bind("BIO_get_data", tls.bioData) &&
         library.Bind("BIO_set_init", tls.setBioReady) && library.Bind("BIO_set_flags", tls.setBioFlags) &&
         library.Bind("BIO_clear_flags", tls.clearBioFlags);
}

std::unique_ptr<const TlsLibrary> Load() {
  const Nox::DynamicLibrary library({"libssl.so.3"});  // and with it, what it needs: libcrypto
  auto tls = std::make_unique<TlsLibrary>();
  if (!BindSessions(library, *tls) || !BindChecks(library, *tls) || !BindBios(library, *tls)) return nullptr;
  // Its own tidying at exit would take it away from threads that still run.
  const std::uint64_t options = OPENSSL_INIT_NO_ATEXIT | OPENSSL_INIT_LOAD_SSL_STRINGS;
  return tls->init(options, nullptr) == 1 ? std::move(tls) : nullptr;
}

}  // namespace

const TlsLibrary* TlsLibrary::Get() {
  static const std::unique_ptr<const TlsLibrary> library = Load();
  return library.get();
}

}  // namespace morvex
