#pragma once

#include <openssl/bio.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509_vfy.h>

namespace morvex {

// The calls of OpenSSL 3 that TLS needs, found at run time, so that a program that opens no TLS connection doesn't
// load it. It keeps its own locks, and any thread may call.
struct TlsLibrary {
  decltype(&OPENSSL_init_ssl) init = nullptr;
  decltype(&TLS_client_method) clientMethod = nullptr;
  decltype(&SSL_CTX_new) newContext = nullptr;
  decltype(&SSL_CTX_ctrl) controlContext = nullptr;
  decltype(&SSL_CTX_set_default_read_buffer_len) setReadBuffer = nullptr;
  decltype(&SSL_CTX_set_default_verify_paths) useSystemStore = nullptr;
  decltype(&SSL_new) newSession = nullptr;
  decltype(&SSL_free) freeSession = nullptr;
  decltype(&SSL_ctrl) control = nullptr;
  decltype(&SSL_set_bio) setBio = nullptr;
  decltype(&SSL_set_verify) setVerify = nullptr;
  decltype(&SSL_set1_host) setHost = nullptr;
  decltype(&SSL_get0_param) parameters = nullptr;
  decltype(&X509_VERIFY_PARAM_set1_ip_asc) setAddress = nullptr;
  decltype(&SSL_get_verify_result) verifyResult = nullptr;
  decltype(&X509_verify_cert_error_string) verifyText = nullptr;
  decltype(&SSL_connect) connect = nullptr;
  decltype(&SSL_read) read = nullptr;
  decltype(&SSL_peek) peek = nullptr;
  decltype(&SSL_write) write = nullptr;
  decltype(&SSL_shutdown) shutdown = nullptr;
  decltype(&SSL_get_error) errorOf = nullptr;
  decltype(&ERR_clear_error) clearErrors = nullptr;
  decltype(&ERR_peek_error) peekError = nullptr;
  decltype(&ERR_reason_error_string) errorText = nullptr;
  decltype(&BIO_get_new_index) newBioIndex = nullptr;
  decltype(&BIO_meth_new) newBioMethod = nullptr;
  decltype(&BIO_meth_set_read) setBioRead = nullptr;
  decltype(&BIO_meth_set_write) setBioWrite = nullptr;
  decltype(&BIO_meth_set_ctrl) setBioControl = nullptr;
  decltype(&BIO_new) newBio = nullptr;
  decltype(&BIO_set_data) setBioData = nullptr;
  decltype(&BIO_get_data) bioData = nullptr;
  decltype(&BIO_set_init) setBioReady = nullptr;
  decltype(&BIO_set_flags) setBioFlags = nullptr;
  decltype(&BIO_clear_flags) clearBioFlags = nullptr;

  // Loads it at the first call; null if it isn't installed.
  static const TlsLibrary* Get();
};

}  // namespace morvex
