#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "devices/linux/probes/RouterAnswers.h"

namespace wifi_profile::linux::probes {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

const std::string kGateway = "192.168.1.1";
const std::string kLocation = "http://192.168.1.1:5000/root.xml";

std::string natPmp(const std::string& start, const std::string& address) {
  return start + std::string(4, '\x07') + address;
}

const std::string kSuccess("\0\x80\0\0", 4);
const std::string kOuterAddress("\xcb\x71\x07\x09");

TEST(RouterAnswers, OfNatPmpHaveTheAddressBehindItsHeader) {
  EXPECT_EQ(addressFromNatPmp(natPmp(kSuccess, kOuterAddress)), "203.113.7.9");
  EXPECT_EQ(addressFromNatPmp(natPmp(kSuccess, kOuterAddress) + "more"), "203.113.7.9");
}

TEST(RouterAnswers, OfNatPmpMustBeWholeAndASuccessAndHaveAHostsAddress) {
  EXPECT_EQ(addressFromNatPmp(""), std::nullopt);
  EXPECT_EQ(addressFromNatPmp(natPmp(kSuccess, kOuterAddress).substr(0, 11)), std::nullopt);
  EXPECT_EQ(addressFromNatPmp(natPmp(kSuccess, std::string(4, '\0'))), std::nullopt);
  EXPECT_EQ(addressFromNatPmp(natPmp(kSuccess, "\xe0\x01\x01\x01")), std::nullopt);
  for (std::size_t byte = 0; byte < kSuccess.size(); ++byte) {
    std::string other = kSuccess;
    ++other[byte];
    EXPECT_EQ(addressFromNatPmp(natPmp(other, kOuterAddress)), std::nullopt) << byte;
  }
}

TEST(RouterAnswers, ToASearchAreBelievedWhereTheyPointToTheRouter) {
  const auto found = [](const std::string& url) {
    return descriptionUrl("HTTP/1.1 200 OK\r\nST: any\r\nlocation: \t" + url + " \r\n\r\n",
                          kGateway);
  };
  EXPECT_EQ(found(kLocation), kLocation);
  EXPECT_EQ(found("http://192.168.1.2/root.xml"), std::nullopt);
  EXPECT_EQ(found("http://192.168.1.1@192.168.1.2/"), std::nullopt);
  EXPECT_EQ(found("https://192.168.1.1/root.xml"), std::nullopt);
  EXPECT_EQ(found("http://192.168.1.1/root xml"), std::nullopt);
  EXPECT_EQ(found(std::string("http://192.168.1.1/\0xml", 23)), std::nullopt);
  EXPECT_EQ(descriptionUrl("HTTP/1.1 200 OK\r\nLocation", kGateway), std::nullopt);
}

std::string description(const std::string& type, const std::string& control,
                        const std::string& base = "") {
  return "<root>" + base +
         "<device><deviceType>urn:schemas-upnp-org:device:InternetGatewayDevice:1"
         "</deviceType><serviceList><service><serviceType>" +
         type + "</serviceType><controlURL>" + control +
         "</controlURL></service></serviceList></device></root>";
}

TEST(RouterAnswers, NameServicesOfTheRouterItself) {
  const std::string type = "urn:schemas-upnp-org:service:WANIPConnection:1";
  const auto controlOf = [&](const std::string& control, const std::string& base = "") {
    return upnpServices(description(type, control, base), kLocation, kGateway);
  };
  const auto at = [](const char* url) {
    return ElementsAre(Field("controlUrl", &UpnpService::controlUrl, url));
  };
  EXPECT_THAT(controlOf("/control"), at("http://192.168.1.1:5000/control"));
  EXPECT_THAT(controlOf("control", "<URLBase>http://192.168.1.1:80/a/</URLBase>"),
              at("http://192.168.1.1:80/a/control"));
  EXPECT_THAT(controlOf("http://192.168.1.2/control"), IsEmpty());
  EXPECT_THAT(controlOf("control", "<URLBase>http://192.168.1.2/</URLBase>"), IsEmpty());
  EXPECT_THAT(upnpServices("<<<<", kLocation, kGateway), IsEmpty());
}

TEST(RouterAnswers, NameNoServiceWhoseTypeWouldBreakTheQuestion) {
  const std::string type = "urn:schemas-upnp-org:service:WANIPConnection:1\"\r\nX: y";
  EXPECT_THAT(upnpServices(description(type, "/control"), kLocation, kGateway), IsEmpty());
}

TEST(RouterAnswers, OfAServiceHaveTheAddressInItsElement) {
  const auto told = [](const std::string& address) {
    return addressFromUpnp("<r><NewExternalIPAddress>" + address + "</NewExternalIPAddress></r>");
  };
  EXPECT_EQ(told("203.0.113.9"), "203.0.113.9");
  EXPECT_EQ(told("0.0.0.0"), std::nullopt);
  EXPECT_EQ(told("home"), std::nullopt);
  EXPECT_EQ(addressFromUpnp(""), std::nullopt);
}

}  // namespace
}  // namespace wifi_profile::linux::probes
