#include "model/SearchFolding.h"

#include <QtCore/QString>

#include <array>

namespace ovrin {

namespace {

/// More characters than any library uses; a bound for the memory, not for what can be searched.
constexpr std::size_t maxKnown = 20'000;

constexpr char16_t dotAbove = 0x0307;

QString withoutMarks(const QString& text)
{
    QString kept;
    for (const char32_t scalar : text.normalized(QString::NormalizationForm_D).toUcs4()) {
        const auto category = QChar::category(scalar);
        if (category != QChar::Mark_NonSpacing && category != QChar::Mark_SpacingCombining &&
            category != QChar::Mark_Enclosing)
            kept += QString::fromUcs4(&scalar, 1);
    }
    return kept;
}

/// Full case folding; Qt's own is the simple one, which keeps ß apart from ss.
QString caseFolded(const QString& text)
{
    const QString upper = text.toUpper();
    return upper.size() > text.size() ? upper.toLower() : text.toCaseFolded();
}

constexpr std::array<char, 128> foldedAscii = [] {
    std::array<char, 128> table{};
    for (int c = 0; c < 128; ++c)
        table[c] = static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
    return table;
}();

} // namespace

SearchFolding::SearchFolding(const QLocale& locale)
    : m_dotlessI(locale.language() == QLocale::Turkish || locale.language() == QLocale::Azerbaijani)
{
}

const std::string& SearchFolding::foldedScalar(char32_t scalar) const
{
    if (const auto known = m_known.find(scalar); known != m_known.end())
        return known->second;
    if (m_known.size() >= maxKnown)
        m_known.clear();
    // Folding the case can bring marks of its own.
    const QString text = withoutMarks(caseFolded(withoutMarks(QString::fromUcs4(&scalar, 1))));
    return m_known.emplace(scalar, text.toStdString()).first->second;
}

void SearchFolding::append(std::string& key, QStringView text) const
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (m_dotlessI && unit == u'I') {
            const bool dotted = i + 1 < text.size() && text[i + 1] == dotAbove;
            key += dotted ? "i" : "ı";
        } else if (unit < 128) {
            key += foldedAscii[unit];
        } else if (QChar::isHighSurrogate(unit) && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            key += foldedScalar(QChar::surrogateToUcs4(unit, text[i + 1].unicode()));
            ++i;
        } else {
            key += foldedScalar(unit);
        }
    }
}

std::string SearchFolding::folded(QStringView text) const
{
    std::string key;
    append(key, text);
    return key;
}

} // namespace ovrin
