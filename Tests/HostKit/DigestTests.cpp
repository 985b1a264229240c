#include <HostKit/Digest.h>

#include <gtest/gtest.h>

#include <string_view>

namespace tolvane {
namespace {

void feed(Digest& digest, std::string_view text) {
    digest.update(std::as_bytes(std::span(text.data(), text.size())));
}

// Known answers of FIPS 180-4.
TEST(Digest, givesTheKnownAnswersOneAfterAnother) {
    Digest digest;
    EXPECT_EQ(hexadecimal(digest.finish()),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    feed(digest, "abc");
    EXPECT_EQ(hexadecimal(digest.finish()),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    const std::string thousand(1000, 'a');
    for (int i = 0; i < 1000; ++i) {
        feed(digest, thousand);
    }
    EXPECT_EQ(hexadecimal(digest.finish()),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

}
}
