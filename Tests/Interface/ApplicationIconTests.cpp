#include <HostKit/HostLayout.h>
#include <Support/TemporaryHome.h>

#include <Controllers/AppRows.h>
#include <Interface/ApplicationIconProvider.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QBuffer>
#include <string>

namespace tolvane {
namespace {

std::string picture(const char* format, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return buffer.data().toStdString();
}

std::string repeated(const char* text) {
    return QByteArray(text).repeated(100'000).toStdString();
}

std::string drawing(const std::string& content) {
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='10' height='10'>" +
           content + "<rect fill='#ff0000' width='10' height='10'/></svg>";
}

TEST(ApplicationIcons, areDrawnWhenTheyAreHarmlessAndNeutralOtherwise) {
    const TemporaryHome home;
    ApplicationIconProvider provider(systemFileManager(HostLayout::freedesktop(home.url(), {})));
    const std::string png = picture("png", {64, 64});
    const struct {
        const char* what;
        std::string bytes;
        bool isDrawn;
    } files[] = {
        {"a picture", png, true},
        {"another format", picture("bmp", {300, 300}), true},
        {"a drawing", drawing(""), true},
        {"a picture that is very wide", picture("png", {4000, 1}), true},
        {"half a picture's header", png.substr(0, 20), false},
        {"a picture that claims to be huge", "P6 60000 60000 255 " + std::string(100, 'x'), false},
        {"a picture too large for its file", png + std::string(4'000'000, 'x'), false},
        {"a drawing of another file", drawing("<image xlink:href='/dev/zero'/>"), false},
        {"a drawing without end", drawing(repeated("<use xlink:href='#a'/>")), false},
        {"a drawing as deep as the stack", drawing(repeated("<g>") + repeated("</g>")), false},
        {"a compressed drawing", "\x1f\x8b\x08" + drawing(""), false},
        {"nothing", "", false},
    };
    const auto shown = [&](const std::optional<FileURL>& file) {
        QSize size;
        QImage image = provider.requestImage("0000ff/" + AppRows::iconKey(file), &size, {32, 32});
        EXPECT_EQ(qMax(size.width(), size.height()), 32);
        return image;
    };
    const QImage neutral = shown(std::nullopt);
    for (const auto& file : files) {
        const QImage image = shown(home.write("icon of any name", file.bytes));
        EXPECT_EQ(image != neutral, file.isDrawn) << file.what;
        const QPoint middle(image.width() / 2, image.height() / 2);
        EXPECT_EQ(image.pixelColor(middle) == QColor(Qt::red), file.isDrawn) << file.what;
    }
    ASSERT_EQ(::mkfifo(home.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(shown(home.url("pipe")), neutral);
}

}
}
