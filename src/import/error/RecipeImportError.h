#pragma once

#include <QtCore/QString>

#include <exception>
#include <optional>

namespace ovrin {

/// Why an import failed, with the sentence that the user is shown. Thrown by value.
class RecipeImportError : public std::exception
{
public:
    enum class Case {
        BadResponse,
        NoRecipeFound,
        NoTextFound,
        UnsupportedFile,
        TooLarge,
        DamagedFile,
    };

    static RecipeImportError badResponse(int httpStatus) { return {Case::BadResponse, httpStatus}; }
    static RecipeImportError noRecipeFound() { return {Case::NoRecipeFound, 0}; }
    static RecipeImportError noTextFound() { return {Case::NoTextFound, 0}; }
    static RecipeImportError unsupportedFile() { return {Case::UnsupportedFile, 0}; }
    static RecipeImportError tooLarge() { return {Case::TooLarge, 0}; }
    /// A file that cannot be read, whatever the reason.
    static RecipeImportError damagedFile() { return {Case::DamagedFile, 0}; }

    Case reason() const { return m_reason; }
    /// Status of a bad response; 0 otherwise.
    int httpStatus() const { return m_httpStatus; }
    QString errorDescription() const;
    const char* what() const noexcept override;

    bool operator==(const RecipeImportError& other) const
    {
        return m_reason == other.m_reason && m_httpStatus == other.m_httpStatus;
    }

private:
    RecipeImportError(Case reason, int httpStatus)
        : m_reason(reason)
        , m_httpStatus(httpStatus)
    {
    }

    Case m_reason;
    int m_httpStatus;
};

/// A page that could not be brought here at all: the network's part of an import's failures.
class TransportError : public std::exception
{
public:
    enum class Case {
        TimedOut,
        NoNetwork,
        HostNotFound,
        Refused,
        ConnectionLost,
        BadCertificate,
        TooManyRedirects,
        RedirectRefused,
        PrivateAddress,
        UnsupportedAddress,
        NoAnswer,
    };

    explicit TransportError(Case reason)
        : m_reason(reason)
    {
    }

    Case reason() const { return m_reason; }
    QString errorDescription() const;
    const char* what() const noexcept override;

    bool operator==(const TransportError& other) const { return m_reason == other.m_reason; }

private:
    Case m_reason;
};

/// The user has called the import off. Nothing to show.
class ImportCancelled : public std::exception
{
public:
    const char* what() const noexcept override { return "import cancelled"; }
};

/// The sentence to show for whatever an import threw; nothing for a cancellation. Never a library's own
/// words.
std::optional<QString> importErrorDescription(const std::exception_ptr& error);

} // namespace ovrin
