#include <Services/ByteFormat.h>
#include <Services/CountFormat.h>

#include <Controllers/ShownFigures.h>

namespace tolvane {

QString shownSize(Bytes size) {
    return QString::fromStdString(ByteFormat::text(size));
}

QString shownNumber(std::int64_t number) {
    return QString::fromStdString(CountFormat::grouped(number));
}

QString shownCount(std::int64_t count, std::string_view noun) {
    return QString::fromStdString(CountFormat::counted(count, noun));
}

QString shownPart(std::int64_t shown, std::int64_t all, std::string_view noun) {
    const QString text = shownCount(all, noun);
    return shown == all ? text : shownNumber(shown) + QStringLiteral(" of ") + text;
}

}
