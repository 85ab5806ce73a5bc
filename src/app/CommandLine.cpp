#include "app/CommandLine.h"

#include <QtCore/QDir>

namespace ovrin {

CommandLine::CommandLine()
    : m_store(QStringLiteral("store"), QStringLiteral("Use the library in this folder."),
              QStringLiteral("folder"))
    , m_newRecipe(QStringLiteral("new-recipe"), QStringLiteral("Open on a new recipe."))
    , m_import(QStringLiteral("import"), QStringLiteral("Open on the import sheet."))
    , m_service(QStringLiteral("dbus-service"))
    , m_help(m_parser.addHelpOption())
    , m_version(m_parser.addVersionOption())
{
    m_service.setFlags(QCommandLineOption::HiddenFromHelp);
    m_parser.setApplicationDescription(QStringLiteral("Keep, scale and cook from your recipes."));
    m_parser.addOptions({m_store, m_newRecipe, m_import, m_service});
    m_parser.addPositionalArgument(QStringLiteral("address"), QStringLiteral("Files and links to open."),
                                   QStringLiteral("[address...]"));
}

bool CommandLine::isPlainStart(const QStringList& arguments)
{
    return m_parser.parse(arguments) && !m_parser.isSet(m_help) && !m_parser.isSet(m_version);
}

StartRequest CommandLine::request() const
{
    StartRequest request;
    for (const QString& address : m_parser.positionalArguments())
        request.addresses.append(QUrl::fromUserInput(address, QDir::currentPath(), QUrl::AssumeLocalFile));
    if (m_parser.isSet(m_newRecipe))
        request.action = QStringLiteral("new-recipe");
    else if (m_parser.isSet(m_import))
        request.action = QStringLiteral("import-from-web");
    return request;
}

} // namespace ovrin
