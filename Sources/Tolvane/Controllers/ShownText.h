#pragma once

#include <HostKit/Date.h>
#include <HostKit/FileURL.h>

#include <QString>
#include <QUrl>
#include <optional>
#include <string_view>

namespace tolvane {

/// Bytes as text for people: U+FFFD in place of what is none, and of marks that turn the direction
/// of text, with which a name could pass for another; control characters as their pictures, so that
/// no name breaks a line.
QString shownText(std::string_view bytes);
/// What a tool wrote, with its breaks between lines; those without text are left out.
QString shownLines(std::string_view bytes);
/// A path for people; a longer text could not be laid out, so the middle of one is left out.
QString shownPath(const FileURL& url);

/// "1:02", "1:00:00"
QString clockText(Seconds seconds);
/// "About 20 seconds left", rounded so that it does not jump.
QString remainingTimeText(Seconds seconds);
/// "2.1 s", "1:02 min"
QString spanText(Seconds seconds);
/// Day and time the way the user's locale writes them; empty when absent.
QString dateText(std::optional<Date> date);
/// The day alone.
QString dayText(std::optional<Date> date);

/// The local place that `url` names, byte for byte; absent when it names none.
std::optional<FileURL> fileURL(const QUrl& url);
QUrl qurl(const FileURL& url);

}
