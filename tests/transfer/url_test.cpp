#include "net/transfer/url.h"

#include <gtest/gtest.h>

#include "net/transfer/redirect_trail.h"

namespace morvex {
namespace {

// All fields but empty ones, as "scheme=http host=x".
std::string Fields(const URL& url) {
  std::string text;
  const auto add = [&](const char* name, std::string_view value) {
    if (!value.empty()) text.append(text.empty() ? "" : " ").append(name).append("=").append(value);
  };
  add("scheme", url.scheme);
  add("user", url.user);
  add("password", url.password);
  add("host", url.host);
  if (url.port != 0) add("port", std::to_string(url.port));
  add("path", url.path);
  add("query", url.query);
  return text;
}

TEST(Url, ParsesIntoItsFields) {
  const struct {
    std::string text, fields, written;
  } rows[] = {
      {"http://a.b/c/d.zip", "scheme=http host=a.b path=/c/d.zip", "http://a.b/c/d.zip"},
      {"host:8080/x", "host=host port=8080 path=/x", "http://host:8080/x"},
      {"host", "host=host", "http://host"},
      {"ftp://me:secret@h:2121/a?b", "scheme=ftp user=me password=secret host=h port=2121 path=/a query=?b",
       "ftp://me:secret@h:2121/a?b"},
      {"ftp://me@h/a", "scheme=ftp user=me host=h path=/a", "ftp://me@h/a"},
      {"me:pw@h", "user=me password=pw host=h", "http://me:pw@h"},
      {"ftp://me:a:b@h/a", "scheme=ftp user=me password=a:b host=h path=/a", "ftp://me:a:b@h/a"},
      {"ftp://me:pw@h@evil/a", "scheme=ftp user=me password=pw path=/a", "ftp://me:pw@/a"},
      {"http://h/a@b:c", "scheme=http host=h path=/a@b:c", "http://h/a@b:c"},
      {"http://h?a=b@c/d://e", "scheme=http host=h query=?a=b@c/d://e", "http://h?a=b@c/d://e"},
      {"http://h/a?b?c", "scheme=http host=h path=/a query=?b?c", "http://h/a?b?c"},
      {"http://h:80x/a", "scheme=http host=h port=80 path=/a", "http://h:80/a"},
      {"http://h:-1/", "scheme=http host=h path=/", "http://h/"},
      {"http://h:99999999999/", "scheme=http host=h port=4294967295 path=/", "http://h:4294967295/"},
      {"qslogin://", "scheme=qslogin", "qslogin://"},
      {"file://morvex/cache/internet/x.dat", "scheme=file host=morvex path=/cache/internet/x.dat",
       "file://morvex/cache/internet/x.dat"},
      {"/x", "path=/x", "http:///x"},
      {"", "", "http://"},
      {std::string("http://good\0.bad/", 17), "scheme=http host=good", "http://good"},
  };
  for (const auto& row : rows) {
    const URL url(row.text);
    EXPECT_EQ(Fields(url), row.fields) << row.text;
    EXPECT_EQ(url.ToString(), row.written) << row.text;
  }
}

TEST(Url, CutsEachFieldAtItsLimit) {
  const std::string text(2000, 'x');
  const URL url(text + "://" + text + ":" + text + "@" + text + ":1/" + text + "?" + text);
  EXPECT_EQ(url.scheme.View().size(), 31U);
  EXPECT_EQ(url.user.View().size(), 63U);
  EXPECT_EQ(url.password.View().size(), 63U);
  EXPECT_EQ(url.host.View().size(), 127U);
  EXPECT_EQ(url.path.View().size(), 255U);
  EXPECT_EQ(url.query.View().size(), 511U);
  EXPECT_EQ(URL(url.ToString()), url);
}

TEST(Url, KnowsPortsNamesAndEquality) {
  EXPECT_EQ(URL("HTTPS://h").DefaultPort(), 443U);
  EXPECT_EQ(URL("Ftp://h").DefaultPort(), 21U);
  EXPECT_EQ(URL("odd://h").DefaultPort(), 80U);
  EXPECT_EQ(URL("https://h:8443").DefaultPort(), 8443U);
  EXPECT_EQ(URL("http://h/a/b.zip?c/d").FileName(), "b.zip");
  EXPECT_EQ(URL("http://h/a/").FileName(), "");
  EXPECT_TRUE(URL("http://h").IsValid());
  EXPECT_FALSE(URL("h").IsValid());
  EXPECT_FALSE(URL("http:///x").IsValid());
  EXPECT_EQ(URL("http://h/x"), URL("http://h/x"));
  EXPECT_NE(URL("http://h/x"), URL("http://h/X"));

  URL relative("/new?q");
  relative.FillFrom(URL("https://me:pw@h:99/old"));
  EXPECT_EQ(relative.ToString(), "https://me:pw@h:99/new?q");
  URL whole("//other/new");
  whole.FillFrom(URL("https://me:pw@h:99/old"));
  EXPECT_EQ(whole.ToString(), "https://me:pw@h:99//other/new");
}

TEST(RedirectTrail, FollowsLocations) {
  const struct {
    const char *from, *location, *to;  // null: not followed
  } rows[] = {
      {"http://h/a/b?q", "http://o:81/x", "http://o:81/x"},
      {"http://me:pw@h:99/a", "http://o/x", "http://o/x"},
      {"http://me:pw@h:99/a", "/x", "http://me:pw@h:99/x"},
      {"http://h/a/b?q", "c?r", "http://h/a/c?r"},
      {"http://h", "c", "http://h/c"},
      {"http://h/a/b?q", "?r", "http://h/a/b?r"},
      {"https://h/a", "//o/x", "https://o/x"},
      {"http://h/a", "http://o/x#part", "http://o/x"},
      {"http://h/a", "login?next=http://o/", "http://h/login?next=http://o/"},
      {"http://h/a", "HTTPS://o/x ", "HTTPS://o/x"},
      {"http://h/a", "ftp://o/x", "ftp://o/x"},
      {"http://h/a", "file://morvex/cache/internet/x", nullptr},
      {"http://h/a", "FILE:///etc/passwd", nullptr},
      {"http://h/a", "qslogin://h", nullptr},
      {"http://h/a", "", nullptr},
      {"http://h/a", "#part", nullptr},
  };
  for (const auto& row : rows) {
    URL url(row.from);
    EXPECT_EQ(RedirectTrail().Follow(url, row.location), row.to != nullptr) << row.location;
    EXPECT_EQ(url.ToString(), row.to != nullptr ? row.to : row.from) << row.location;
  }
}

TEST(RedirectTrail, EndsAfterTwenty) {
  RedirectTrail trail;
  URL url("http://h/0");
  for (int i = 1; i <= 20; ++i)
    EXPECT_TRUE(trail.Follow(url, "/" + std::to_string(i)));
  EXPECT_FALSE(trail.Follow(url, "/21"));
  EXPECT_EQ(url.path.View(), "/20");
}

TEST(RedirectTrail, KnowsOneServerFromAnother) {
  EXPECT_TRUE(SameServer(URL("h/a"), URL("HTTP://H:80/b")));
  EXPECT_FALSE(SameServer(URL("http://h/a"), URL("https://h/a")));
  EXPECT_FALSE(SameServer(URL("http://h/a"), URL("http://h:81/a")));
  EXPECT_FALSE(SameServer(URL("http://h/a"), URL("http://h.evil/a")));
}

}  // namespace
}  // namespace morvex
