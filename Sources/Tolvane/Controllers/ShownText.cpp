#include <HostKit/Lines.h>
#include <HostKit/Text.h>

#include <Controllers/ShownText.h>

#include <QByteArray>
#include <QDateTime>
#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <string>

namespace tolvane {
namespace {

constexpr std::int64_t secondsAMinute = 60;
constexpr std::int64_t secondsAnHour = 3600;

QString twoDigits(std::int64_t number) {
    return QString::number(number).rightJustified(2, u'0');
}

/// `count` to the next multiple of `step`, at least one.
std::int64_t inSteps(std::int64_t count, std::int64_t step) {
    return std::max(step, (count + step - 1) / step * step);
}

QString about(std::int64_t count, const QString& unit) {
    return QStringLiteral("About %1 %2%3 left").arg(count).arg(unit, count == 1 ? "" : "s");
}

/// Unicode's Bidi_Control.
bool isDirectionMark(QChar character) {
    const char16_t code = character.unicode();
    return code == u'\u061c' || code == u'\u200e' || code == u'\u200f' ||
           (code >= u'\u202a' && code <= u'\u202e') || (code >= u'\u2066' && code <= u'\u2069');
}

QChar shownCharacter(QChar character) {
    constexpr char16_t firstPicture = u'\u2400';
    constexpr char16_t pictureOfDelete = u'\u2421';
    const char16_t code = character.unicode();
    if (code < u' ') {
        return QChar(static_cast<char16_t>(firstPicture + code));
    }
    if (code == u'\x7f') {
        return QChar(pictureOfDelete);
    }
    const bool isControl = character.category() == QChar::Other_Control;
    return isControl || isDirectionMark(character) ? QChar(QChar::ReplacementCharacter) : character;
}

/// Not valid for a date that is absent or beyond all calendars.
QDateTime localTime(std::optional<Date> date) {
    constexpr double milliseconds = 1000;
    constexpr double farthest = 8.64e12;
    return date && std::abs(*date) < farthest
               ? QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(*date * milliseconds))
               : QDateTime();
}

}

QString shownText(std::string_view bytes) {
    QString text = QString::fromStdString(displayText(bytes));
    std::transform(text.begin(), text.end(), text.begin(), shownCharacter);
    return text;
}

QString shownLines(std::string_view bytes) {
    QStringList lines;
    for (const std::string_view line : filledLines(bytes)) {
        lines.append(shownText(line));
    }
    return lines.join(u'\n');
}

QString shownPath(const FileURL& url) {
    constexpr std::size_t longest = 4096;
    const std::string& path = url.path();
    if (path.size() <= longest) {
        return shownText(path);
    }
    const std::string_view all = path;
    return shownText(all.substr(0, longest / 2)) + u'\u2026' +
           shownText(all.substr(all.size() - longest / 2));
}

QString clockText(Seconds seconds) {
    const auto whole = static_cast<std::int64_t>(seconds);
    const QString rest = twoDigits(whole % secondsAMinute);
    if (whole < secondsAnHour) {
        return QString::number(whole / secondsAMinute) + u':' + rest;
    }
    return QString::number(whole / secondsAnHour) + u':' +
           twoDigits(whole % secondsAnHour / secondsAMinute) + u':' + rest;
}

QString remainingTimeText(Seconds seconds) {
    constexpr std::int64_t step = 5;
    const auto whole = static_cast<std::int64_t>(std::ceil(seconds));
    if (whole < secondsAMinute) {
        return about(whole <= step ? std::max<std::int64_t>(whole, 1) : inSteps(whole, step),
                     QStringLiteral("second"));
    }
    if (whole < secondsAnHour) {
        return about((whole + secondsAMinute / 2) / secondsAMinute, QStringLiteral("minute"));
    }
    return about((whole + secondsAnHour / 2) / secondsAnHour, QStringLiteral("hour"));
}

QString spanText(Seconds seconds) {
    constexpr Seconds least = 0.1;
    if (seconds < least) {
        return QStringLiteral("under 0.1 s");
    }
    if (seconds < static_cast<Seconds>(secondsAMinute)) {
        return QString::number(seconds, 'f', 1) + QStringLiteral(" s");
    }
    return clockText(seconds) + (seconds < static_cast<Seconds>(secondsAnHour)
                                     ? QStringLiteral(" min")
                                     : QStringLiteral(" h"));
}

QString dateText(std::optional<Date> date) {
    const QDateTime moment = localTime(date);
    return moment.isValid() ? QLocale().toString(moment, QLocale::ShortFormat) : QString();
}

QString dayText(std::optional<Date> date) {
    const QDateTime moment = localTime(date);
    return moment.isValid() ? QLocale().toString(moment.date(), QLocale::ShortFormat) : QString();
}

std::optional<FileURL> fileURL(const QUrl& url) {
    if (!url.isLocalFile() || !url.host().isEmpty()) {
        return std::nullopt;
    }
    // Decoding by QUrl would turn bytes that are no UTF-8 into something else.
    const QByteArray bytes =
        QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    const std::string path = bytes.toStdString();
    if (path.empty() || path.front() != '/' || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    return FileURL(path).standardized();
}

QUrl qurl(const FileURL& url) {
    const QByteArray encoded =
        QByteArray::fromStdString(url.path()).toPercentEncoding(QByteArrayLiteral("/"));
    return QUrl::fromEncoded(QByteArrayLiteral("file://") + encoded, QUrl::StrictMode);
}

}
