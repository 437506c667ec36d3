#include <gtest/gtest.h>
#include <memory>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include "devices/linux/reach/HttpServers.h"
#include "devices/linux/reach/Web.h"

namespace wifi_profile::machine {
namespace {

struct Free {
  void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
  void operator()(SSL* connection) const { SSL_free(connection); }
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  void operator()(X509* certificate) const { X509_free(certificate); }
};
using Context = std::unique_ptr<SSL_CTX, Free>;

// With a certificate for this address that nobody but itself vouches for.
Context selfSigned() {
  const std::unique_ptr<EVP_PKEY, Free> key(EVP_EC_gen("P-256"));
  const std::unique_ptr<X509, Free> certificate(X509_new());
  X509_set_version(certificate.get(), 2);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 3600);
  X509_set_pubkey(certificate.get(), key.get());
  X509_EXTENSION* name =
      X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1");
  X509_add_ext(certificate.get(), name, -1);
  X509_EXTENSION_free(name);
  X509_sign(certificate.get(), key.get(), EVP_sha256());
  Context context(SSL_CTX_new(TLS_server_method()));
  EXPECT_EQ(SSL_CTX_use_certificate(context.get(), certificate.get()), 1);
  EXPECT_EQ(SSL_CTX_use_PrivateKey(context.get(), key.get()), 1);
  return context;
}

TEST(Tls, IsRefusedWithACertificateThatNobodyVouchesFor) {
  const Context context = selfSigned();
  std::atomic<int> requests = 0;
  const TcpServer server([&](int connection) {
    const std::unique_ptr<SSL, Free> tls(SSL_new(context.get()));
    SSL_set_fd(tls.get(), connection);
    if (SSL_accept(tls.get()) != 1) return;
    char byte = 0;
    if (SSL_read(tls.get(), &byte, 1) == 1) ++requests;
  });
  const std::string url = urlOf(server, "/", "https");
  const Cancellation never;
  const auto site = reachSite(url, {}, patient(never));
  ASSERT_TRUE(site);
  EXPECT_EQ(*site, (checks::SiteReach{false, "certificate not accepted"}));
  const auto page = retrievePage(url, "", {}, patient(never));
  ASSERT_TRUE(page);
  EXPECT_EQ(*page, (checks::SitePage{false, "certificate not accepted"}));
  EXPECT_EQ(requests, 0);
}

TEST(Tls, IsNotSpokenByAServerOfSomethingElse) {
  const TcpServer server(
      [](int connection) { say(connection, "HTTP/1.1 400 Bad Request\r\n\r\n"); });
  const Cancellation never;
  const auto site = reachSite(urlOf(server, "/", "https"), {}, patient(never));
  ASSERT_TRUE(site);
  EXPECT_FALSE(site->reached);
}

}  // namespace
}  // namespace wifi_profile::machine
