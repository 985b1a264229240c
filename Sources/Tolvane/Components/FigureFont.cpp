#include <Components/FigureFont.h>

#include <QFont>
#include <QFontDatabase>
#include <QHash>
#include <QList>
#include <QRawFont>
#include <QtEndian>
#include <algorithm>
#include <utility>

namespace tolvane::figureFont {

namespace {

const QString interfaceFamily = QStringLiteral("Inter");

/// A table of a font: big-endian numbers at offsets; what lies outside reads as 0.
class Table {
  public:
    explicit Table(QByteArray bytes)
        : bytes_(std::move(bytes)) {}

    quint16 short16(qsizetype at) const { return number<quint16>(at); }
    quint32 long32(qsizetype at) const { return number<quint32>(at); }
    Table from(qsizetype at) const { return Table(bytes_.mid(at)); }
    QByteArray text(qsizetype at, qsizetype length) const { return bytes_.mid(at, length); }

  private:
    template <class Number>
    Number number(qsizetype at) const {
        const auto size = static_cast<qsizetype>(sizeof(Number));
        return at < 0 || at + size > bytes_.size()
                   ? Number{0}
                   : qFromBigEndian<Number>(bytes_.constData() + at);
    }

    QByteArray bytes_;
};

class Writer {
  public:
    Writer& short16(qsizetype value) { return number(static_cast<quint16>(value)); }
    Writer& long32(qsizetype value) { return number(static_cast<quint32>(value)); }
    Writer& bytes(const QByteArray& text) {
        written_ += text;
        return *this;
    }
    QByteArray written() const { return written_; }

  private:
    template <class Number>
    Writer& number(Number value) {
        const Number ordered = qToBigEndian(value);
        written_.append(reinterpret_cast<const char*>(&ordered), sizeof ordered);
        return *this;
    }

    QByteArray written_;
};

/// The glyphs that a coverage table names, in its order.
QList<quint16> covered(const Table& coverage) {
    QList<quint16> glyphs;
    const int count = coverage.short16(2);
    for (int i = 0; i < count; ++i) {
        if (coverage.short16(0) == 1) {
            glyphs.append(coverage.short16(4 + 2 * i));
            continue;
        }
        const int last = coverage.short16(6 + 6 * i);
        for (int glyph = coverage.short16(4 + 6 * i); glyph <= last; ++glyph) {
            glyphs.append(static_cast<quint16>(glyph));
        }
    }
    return glyphs;
}

using Substitutes = QHash<quint32, quint32>;

/// Reads one single substitution (lookup type 1, formats 1 and 2).
void readSubstitution(const Table& table, Substitutes& substitutes) {
    const QList<quint16> glyphs = covered(table.from(table.short16(2)));
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        const int other = table.short16(0) == 1 ? (glyphs[i] + table.short16(4)) & 0xffff
                                                : table.short16(6 + 2 * i);
        substitutes.insert(glyphs[i], static_cast<quint32>(other));
    }
}

void readLookup(const Table& lookup, Substitutes& substitutes) {
    constexpr int single = 1;
    constexpr int extension = 7;
    for (int i = 0; i < lookup.short16(4); ++i) {
        const Table table = lookup.from(lookup.short16(6 + 2 * i));
        if (lookup.short16(0) == single) {
            readSubstitution(table, substitutes);
        } else if (lookup.short16(0) == extension && table.short16(2) == single) {
            readSubstitution(table.from(table.long32(4)), substitutes);
        }
    }
}

/// What the feature "tnum" puts in the place of which glyph (OpenType 1.9, GSUB).
Substitutes tabularFigures(const Table& gsub) {
    Substitutes substitutes;
    const Table features = gsub.from(gsub.short16(6));
    const Table lookups = gsub.from(gsub.short16(8));
    for (int i = 0; i < features.short16(0); ++i) {
        if (features.text(2 + 6 * i, 4) != "tnum") {
            continue;
        }
        const Table feature = features.from(features.short16(6 + 6 * i));
        for (int l = 0; l < feature.short16(2); ++l) {
            readLookup(lookups.from(lookups.short16(2 + 2 * feature.short16(4 + 2 * l))),
                       substitutes);
        }
    }
    return substitutes;
}

/// A character map (format 12) of what figures stand among: Latin and general punctuation.
QByteArray characterMap(const QRawFont& font, const Substitutes& substitutes) {
    Writer groups;
    int count = 0;
    for (const auto& [first, last] : {std::pair(0x20, 0x24f), std::pair(0x2000, 0x206f)}) {
        for (int character = first; character <= last; ++character) {
            const QList<quint32> glyphs = font.glyphIndexesForString(QChar(character));
            if (!glyphs.isEmpty() && glyphs.first() != 0) {
                const quint32 glyph = substitutes.value(glyphs.first(), glyphs.first());
                groups.long32(character).long32(character).long32(glyph);
                ++count;
            }
        }
    }
    // Named as a map of all of Unicode (platform 0): FreeType takes no other for an OpenType font
    // and would make one from the glyphs' names.
    Writer map;
    map.short16(0).short16(1).short16(0).short16(4).long32(12);
    map.short16(12).short16(0).long32(16 + 12 * count).long32(0).long32(count);
    return map.bytes(groups.written()).written();
}

QByteArray utf16(const QString& text) {
    Writer writer;
    for (const QChar unit : text) {
        writer.short16(unit.unicode());
    }
    return writer.written();
}

QByteArray names(const QString& style) {
    const QString whole = family() + u' ' + style;
    const QList<std::pair<int, QByteArray>> records = {{1, utf16(family())},
                                                       {2, utf16(style)},
                                                       {4, utf16(whole)},
                                                       {6, utf16(QString(whole).remove(u' '))}};
    Writer head;
    Writer texts;
    head.short16(0).short16(records.size()).short16(6 + 12 * records.size());
    for (const auto& [kind, text] : records) {
        head.short16(3).short16(1).short16(0x409).short16(kind);
        head.short16(text.size()).short16(texts.written().size());
        texts.bytes(text);
    }
    return head.bytes(texts.written()).written();
}

QByteArray fontFile(QList<std::pair<QByteArray, QByteArray>> tables, bool hasOutlinesOfCFF) {
    std::sort(tables.begin(), tables.end());
    Writer head;
    Writer body;
    head.bytes(hasOutlinesOfCFF ? QByteArray("OTTO") : QByteArray("\0\1\0\0", 4));
    head.short16(tables.size()).short16(0).short16(0).short16(0);
    const qsizetype start = 12 + 16 * tables.size();
    for (const auto& [tag, table] : tables) {
        // Readers of fonts in memory do not compare check sums.
        head.bytes(tag).long32(0).long32(start + body.written().size()).long32(table.size());
        body.bytes(table).bytes(QByteArray(-table.size() & 3, '\0'));
    }
    return head.bytes(body.written()).written();
}

}

QString family() {
    return QStringLiteral("Tolvane Figures");
}

QByteArray made(int weight) {
    QFont wanted(interfaceFamily);
    wanted.setWeight(static_cast<QFont::Weight>(weight));
    const QRawFont font = QRawFont::fromFont(wanted);
    const Substitutes substitutes = tabularFigures(Table(font.fontTable("GSUB")));
    if (font.familyName() != interfaceFamily || substitutes.isEmpty()) {
        return {};
    }
    QList<std::pair<QByteArray, QByteArray>> tables = {{"cmap", characterMap(font, substitutes)},
                                                       {"name", names(font.styleName())}};
    for (const char* tag : {"CFF ", "GDEF", "GPOS", "OS/2", "cvt ", "fpgm", "gasp", "glyf", "head",
                            "hhea", "hmtx", "loca", "maxp", "post", "prep"}) {
        const QByteArray table = font.fontTable(tag);
        if (!table.isEmpty()) {
            tables.append({tag, table});
        }
    }
    return fontFile(tables, !font.fontTable("CFF ").isEmpty());
}

void install() {
    if (QFontDatabase::hasFamily(family())) {
        return;
    }
    QFont::insertSubstitution(family(), interfaceFamily);
    for (const int weight : {QFont::Normal, QFont::Medium, QFont::DemiBold}) {
        const QByteArray font = made(weight);
        if (!font.isEmpty()) {
            QFontDatabase::addApplicationFontFromData(font);
        }
    }
}

}
