#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/OwnNetwork.h"
#include "devices/linux/probes/Portal.h"
#include "devices/linux/probes/Site.h"

namespace wifi_profile::linux::probes {
namespace {

struct Free {
  void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
  void operator()(SSL* connection) const { SSL_free(connection); }
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  void operator()(X509* certificate) const { X509_free(certificate); }
};
using Context = std::unique_ptr<SSL_CTX, Free>;
using Key = std::unique_ptr<EVP_PKEY, Free>;
using Certificate = std::unique_ptr<X509, Free>;

// Where the system has the certificates that it trusts.
constexpr const char* kBundle = "/etc/ssl/certs/ca-certificates.crt";

void setName(X509_NAME* name, const char* text) {
  X509_NAME_add_entry_by_NID(name, NID_commonName, MBSTRING_ASC,
                             reinterpret_cast<const unsigned char*>(text), -1, -1, 0);
}

// For an hour, with one extension.
Certificate certificateOf(const Key& key, const char* name, const Key& issuerKey,
                          const char* issuer, int extension, const char* value) {
  Certificate certificate(X509_new());
  X509_set_version(certificate.get(), 2);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 3600);
  setName(X509_get_subject_name(certificate.get()), name);
  setName(X509_get_issuer_name(certificate.get()), issuer);
  X509_set_pubkey(certificate.get(), key.get());
  X509_EXTENSION* made = X509V3_EXT_conf_nid(nullptr, nullptr, extension, value);
  X509_add_ext(certificate.get(), made, -1);
  X509_EXTENSION_free(made);
  X509_sign(certificate.get(), issuerKey.get(), EVP_sha256());
  return certificate;
}

Context contextOf(const Key& key, const Certificate& certificate) {
  Context context(SSL_CTX_new(TLS_server_method()));
  EXPECT_EQ(SSL_CTX_use_certificate(context.get(), certificate.get()), 1);
  EXPECT_EQ(SSL_CTX_use_PrivateKey(context.get(), key.get()), 1);
  return context;
}

// With a certificate for this address that only itself vouches for.
Context selfSigned() {
  const Key key(EVP_EC_gen("P-256"));
  return contextOf(
      key, certificateOf(key, "server", key, "server", NID_subject_alt_name, "IP:127.0.0.1"));
}

// From now on this process trusts this authority and no other. It must be in a namespace of users
// of its own.
bool trustOnly(const Certificate& authority) {
  std::string path = "/tmp/authority-XXXXXX";
  std::FILE* const stream = fdopen(mkstemp(path.data()), "w");
  const bool written = PEM_write_X509(stream, authority.get()) == 1 && std::fclose(stream) == 0;
  const bool done = written && unshare(CLONE_NEWNS) == 0 &&
                    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                    mount(path.c_str(), kBundle, nullptr, MS_BIND, nullptr) == 0;
  unlink(path.c_str());
  return done;
}

// In this thread: the library writes in a way that raises SIGPIPE when the other side is gone.
void blockBrokenPipe() {
  sigset_t pipe;
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &pipe, nullptr);
}

TcpServer::Serve answeringByTls(const Context& context, const std::string& text) {
  return [&context, text](int connection) {
    blockBrokenPipe();
    const std::unique_ptr<SSL, Free> tls(SSL_new(context.get()));
    SSL_set_fd(tls.get(), connection);
    if (SSL_accept(tls.get()) != 1) return;
    std::string request;
    char byte = 0;
    while (!request.ends_with("\r\n\r\n") && SSL_read(tls.get(), &byte, 1) == 1) request += byte;
    if (!request.empty()) SSL_write(tls.get(), text.data(), static_cast<int>(text.size()));
  };
}

// What becomes of a server at 127.0.0.1 with a certificate for `address` by an authority that the
// system trusts.
int outcomeOf(const char* address, const facts::SiteReach& reach, const facts::SitePage& page) {
  return inOwnNetwork([&] {
    const Key authorityKey(EVP_EC_gen("P-256"));
    const Key key(EVP_EC_gen("P-256"));
    const auto authority = certificateOf(authorityKey, "authority", authorityKey, "authority",
                                         NID_basic_constraints, "critical,CA:TRUE");
    if (!trustOnly(authority)) return false;
    const Context context = contextOf(key, certificateOf(key, "server", authorityKey, "authority",
                                                         NID_subject_alt_name, address));
    const TcpServer server(
        answeringByTls(context, "HTTP/1.1 200 OK\r\nContent-Length: 8\r\n\r\nexpected"));
    const std::string url = urlOf(server, "/", "https");
    const auto site = reachSite(url, {}, longDeadline());
    const auto got = retrievePage(url, "expected", {}, longDeadline());
    return site && got && *site == reach && *got == page;
  });
}

TEST(Tls, IsAcceptedWithACertificateOfAnAuthorityThatTheSystemTrusts) {
  if (access(kBundle, R_OK) != 0) GTEST_SKIP() << "the package ca-certificates is not installed";
  const int status = outcomeOf("IP:127.0.0.1", {true, {}}, {true, {}});
  if (status == kNotPossible) GTEST_SKIP() << "no namespaces of users here";
  EXPECT_EQ(status, 0);
}

TEST(Tls, IsRefusedWithACertificateForAnotherAddress) {
  if (access(kBundle, R_OK) != 0) GTEST_SKIP() << "the package ca-certificates is not installed";
  const int status = outcomeOf("IP:127.0.0.2", {false, "certificate not accepted"},
                               {false, "certificate not accepted"});
  if (status == kNotPossible) GTEST_SKIP() << "no namespaces of users here";
  EXPECT_EQ(status, 0);
}

TEST(Tls, IsRefusedWithACertificateThatOnlyItselfVouchesFor) {
  const Context context = selfSigned();
  std::atomic<int> requests = 0;
  const TcpServer server([&](int connection) {
    blockBrokenPipe();
    const std::unique_ptr<SSL, Free> tls(SSL_new(context.get()));
    SSL_set_fd(tls.get(), connection);
    if (SSL_accept(tls.get()) != 1) return;
    char byte = 0;
    if (SSL_read(tls.get(), &byte, 1) == 1) ++requests;
  });
  const std::string url = urlOf(server, "/", "https");
  const auto site = reachSite(url, {}, longDeadline());
  ASSERT_TRUE(site);
  EXPECT_EQ(*site, (facts::SiteReach{false, "certificate not accepted"}));
  const auto page = retrievePage(url, "", {}, longDeadline());
  ASSERT_TRUE(page);
  EXPECT_EQ(*page, (facts::SitePage{false, "certificate not accepted"}));
  EXPECT_EQ(requests, 0);
}

TEST(Tls, IsNotSpokenByAServerOfSomethingElse) {
  const TcpServer server(
      [](int connection) { say(connection, "HTTP/1.1 400 Bad Request\r\n\r\n"); });
  const auto site = reachSite(urlOf(server, "/", "https"), {}, longDeadline());
  ASSERT_TRUE(site);
  EXPECT_FALSE(site->reached);
}

}  // namespace
}  // namespace wifi_profile::linux::probes
