#pragma once

#include <QtCore/QLocale>
#include <QtCore/QStringView>

#include <string>
#include <string_view>
#include <unordered_map>

namespace ovrin {

/// Folds text so that plain containment of the folded forms is containment as people mean it: case-folded,
/// decomposed canonically (never by compatibility, which would take ½ apart), without marks, in UTF-8. In
/// Turkish and Azerbaijani i and ı are two letters. One thread at a time.
class SearchFolding
{
public:
    /// Stands between the fields of a key; occurs in no UTF-8, so that no search reaches across.
    static constexpr char separator = '\xff';

    explicit SearchFolding(const QLocale& locale);

    void append(std::string& key, QStringView text) const;
    std::string folded(QStringView text) const;

private:
    const std::string& foldedScalar(char32_t scalar) const;

    bool m_dotlessI;
    mutable std::unordered_map<char32_t, std::string> m_known;
};

} // namespace ovrin
