#include "ui/recipe/DirectionList.h"

namespace ovrin {

QVariant DirectionList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const DirectionRow& row = rows().at(index.row());
    switch (role) {
    case StepNumberRole:
        return row.stepNumber;
    case StepTitleRole:
        return row.stepTitle;
    case TextRole:
    case Qt::DisplayRole:
        return row.paragraph.text;
    case LinksRole: {
        QVariantList links;
        for (const DirectionParagraph::Link& link : row.paragraph.links())
            links.append(QVariantMap{{QStringLiteral("address"), link.address},
                                     {QStringLiteral("text"), link.text},
                                     {QStringLiteral("isTimer"), link.isTimer}});
        return links;
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> DirectionList::roleNames() const
{
    return {{StepNumberRole, "stepNumber"},
            {StepTitleRole, "stepTitle"},
            {TextRole, "paragraphText"},
            {LinksRole, "links"}};
}

QString DirectionList::richText(int row, const QString& textColor, const QString& accentColor,
                                const QString& focusColor, int focused, int weight, int glyphSize) const
{
    return row >= 0 && row < rows().size()
               ? rows().at(row).paragraph.richText(textColor, accentColor, focusColor, focused, weight,
                                                   glyphSize)
               : QString();
}

} // namespace ovrin
