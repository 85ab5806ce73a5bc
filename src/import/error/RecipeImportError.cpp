#include "import/error/RecipeImportError.h"

namespace ovrin {

QString RecipeImportError::errorDescription() const
{
    switch (m_reason) {
    case Case::BadResponse:
        return QStringLiteral("The site responded with an error (HTTP %1).").arg(m_httpStatus);
    case Case::NoRecipeFound:
        return QStringLiteral("No recipe was found on this page.");
    case Case::NoTextFound:
        return QStringLiteral("No text could be read from this file.");
    case Case::UnsupportedFile:
        return QStringLiteral("Ovrin can import recipes from web pages, PDFs and images.");
    case Case::TooLarge:
        return QStringLiteral("This is too large to import.");
    case Case::DamagedFile:
        return QStringLiteral("This file could not be read. It may be damaged.");
    }
    return {};
}

const char* RecipeImportError::what() const noexcept
{
    return "recipe import failed";
}

QString TransportError::errorDescription() const
{
    switch (m_reason) {
    case Case::TimedOut:
        return QStringLiteral("The site took too long to answer.");
    case Case::NoNetwork:
        return QStringLiteral("There is no connection to the network.");
    case Case::HostNotFound:
        return QStringLiteral("No site was found at this address.");
    case Case::Refused:
        return QStringLiteral("The site could not be reached.");
    case Case::ConnectionLost:
        return QStringLiteral("The connection to the site was lost.");
    case Case::BadCertificate:
        return QStringLiteral("The site could not prove that it is what it claims to be.");
    case Case::TooManyRedirects:
        return QStringLiteral("The site sent the import on too many times.");
    case Case::RedirectRefused:
        return QStringLiteral("The site sent the import on to an address that is not safe to follow.");
    case Case::PrivateAddress:
        return QStringLiteral("The site sent the import on to an address inside a private network.");
    case Case::UnsupportedAddress:
        return QStringLiteral("This is not the address of a web page.");
    case Case::NoAnswer:
        return QStringLiteral("The site gave no answer that could be read.");
    }
    return {};
}

const char* TransportError::what() const noexcept
{
    return "page could not be fetched";
}

std::optional<QString> importErrorDescription(const std::exception_ptr& error)
{
    try {
        std::rethrow_exception(error);
    } catch (const RecipeImportError& failure) {
        return failure.errorDescription();
    } catch (const TransportError& failure) {
        return failure.errorDescription();
    } catch (const ImportCancelled&) {
        return std::nullopt;
    } catch (...) {
        return QStringLiteral("The import failed.");
    }
}

} // namespace ovrin
