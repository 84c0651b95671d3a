// Finds out which texts contain what the user types.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QLocale>
#include <QStringView>

#include <array>
#include <cstdint>
#include <string>

namespace zeph {

/// Brings texts into a form in which those that are the same but for letter case are the same.
///
/// That is full Unicode case folding ("STRASSE" and "Straße" become the same, and so do both forms
/// of a small sigma) of canonically composed text, composed again: it makes no difference whether
/// "é" is one character or a letter and its accent. Accents stay, and so does all else. In Turkish
/// and Azerbaijani the pairs are I ı and İ i; elsewhere they are I i, while İ keeps its dot as an
/// accent, as it does when it is decomposed.
class TextFolding {
public:
    /// In the language of `locale`, by default the user's.
    explicit TextFolding(const QLocale &locale = QLocale());

    /// Appends `text`, valid UTF-8, to `folded`. Any thread.
    void appendFolded(QByteArrayView text, std::string &folded) const;

    friend bool operator==(const TextFolding &, const TextFolding &) = default;

private:
    bool m_isTurkic;
};

/// Looks for one text within others that were folded the same way.
///
/// A text contains another if the folded bytes do, and if that splits no letter from its accents:
/// neither does an "e" find the first half of an "é", however that is written, nor an accent alone
/// one that follows a letter.
///
/// To look through many texts at once they may be joined by `separator`. Any thread.
class TextSearch {
public:
    /// Stands in no folded text.
    static constexpr char separator = '\xff';

    /// Finds nothing.
    TextSearch() = default;
    TextSearch(QStringView text, const TextFolding &folding);

    /// There is nothing to look for.
    bool isEmpty() const { return m_text.empty(); }
    /// Where the first match in begin…end begins; null when there is none. `begin` is where a text
    /// begins, and `end` where one ends or its separator stands.
    const char *find(const char *begin, const char *end) const;
    bool isIn(QByteArrayView foldedText) const
    {
        return find(foldedText.begin(), foldedText.end());
    }
    /// Whether all texts in which this one is found are among those in which `other` is.
    bool isNarrowerThan(const TextSearch &other) const;

    /// How often each byte comes among what is looked through. Known, it saves time.
    using ByteCounts = std::array<std::uint32_t, 256>;
    void expect(const ByteCounts &counts);

    friend bool operator==(const TextSearch &left, const TextSearch &right)
    {
        return left.m_text == right.m_text;
    }

private:
    bool isWhole(const char *begin, const char *match, const char *end) const;

    std::string m_text;
    std::size_t m_rarest = 0; ///< Where in the text the byte is that is looked for first.
    bool m_beginsWithAccent = false;
};

} // namespace zeph
