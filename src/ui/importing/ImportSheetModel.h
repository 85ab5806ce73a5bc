#pragma once

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace ovrin {

/// The address typed into the import sheet, checked as it is typed.
class ImportSheetModel : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(ImportSheetModel)
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QString address READ address WRITE setAddress NOTIFY addressChanged)
    Q_PROPERTY(bool canImport READ canImport NOTIFY addressChanged)

public:
    explicit ImportSheetModel(QObject* parent = nullptr);

    const QString& address() const { return m_address; }
    void setAddress(const QString& address);
    bool canImport() const { return url().has_value(); }

    /// Empties the field, or fills it from a pasteboard text that is a web address as it stands.
    void open(const QString& pasteboard);

    /// The address to import: "https://" is put in front where no scheme stands. Nothing unless it is
    /// a valid http or https address with a host.
    std::optional<QUrl> url() const { return webAddress(m_address); }
    static std::optional<QUrl> webAddress(const QString& text);
    /// The same for text from a pasteboard or a drop, where nothing is put in front: an address in full or
    /// none.
    static std::optional<QUrl> fullWebAddress(const QString& text);

Q_SIGNALS:
    void addressChanged();

private:
    QString m_address;
};

} // namespace ovrin
