#pragma once

#include "import/web/PhotoMaker.h"
#include "model/RecipeDraft.h"
#include "ui/editor/IngredientRows.h"
#include "ui/editor/StepRows.h"

#include <QtCore/QTimer>
#include <QtCore/QUrl>

namespace ovrin {

class DraftPhotos;
class Pasteboard;

/// What the editor opens on.
struct EditorSession
{
    /// The sheet's title.
    QString heading;
    /// Shown above the form; mostly empty.
    QString notice;
    RecipeDraft draft;
    /// What counts as unchanged when that is not `draft`: of a recovered draft, what it was made from.
    std::optional<RecipeDraft> original = std::nullopt;
};

/// The form over one draft: a working copy that is handed over once, by `save`, or dropped.
class EditorModel : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(EditorModel)
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY openChanged)
    Q_PROPERTY(QString heading READ heading NOTIFY openChanged)
    Q_PROPERTY(QString notice READ notice NOTIFY openChanged)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY edited)
    Q_PROPERTY(QString publisher READ publisher WRITE setPublisher NOTIFY edited)
    Q_PROPERTY(QString author READ author WRITE setAuthor NOTIFY edited)
    Q_PROPERTY(QString yield READ yield WRITE setYield NOTIFY edited)
    Q_PROPERTY(QString summary READ summary WRITE setSummary NOTIFY edited)
    Q_PROPERTY(QString webPage READ webPage WRITE setWebPage NOTIFY edited)
    Q_PROPERTY(bool isWebPageReadable READ isWebPageReadable NOTIFY edited)
    Q_PROPERTY(QString prepMinutes READ prepMinutes WRITE setPrepMinutes NOTIFY edited)
    Q_PROPERTY(QString cookMinutes READ cookMinutes WRITE setCookMinutes NOTIFY edited)
    Q_PROPERTY(QString totalMinutes READ totalMinutes WRITE setTotalMinutes NOTIFY edited)
    Q_PROPERTY(ovrin::IngredientRows* ingredients READ ingredients CONSTANT)
    Q_PROPERTY(ovrin::StepRows* steps READ steps CONSTANT)
    Q_PROPERTY(QUrl photo READ photo NOTIFY photoChanged)
    Q_PROPERTY(bool isMakingPhoto READ isMakingPhoto NOTIFY photoChanged)
    Q_PROPERTY(QString photoProblem READ photoProblem NOTIFY photoChanged)
    Q_PROPERTY(bool isChanged READ isChanged NOTIFY edited)

public:
    EditorModel(PhotoMaker& photoMaker, Pasteboard& pasteboard, DraftPhotos& photos,
                QObject* parent = nullptr);
    ~EditorModel() override;

    void open(const EditorSession& session);

    bool isOpen() const { return m_isOpen; }
    const QString& heading() const { return m_heading; }
    const QString& notice() const { return m_notice; }
    bool isChanged() const;

    /// The working copy as it would be handed over now.
    RecipeDraft draft() const;

    const QString& title() const { return m_draft.title; }
    const QString& publisher() const { return m_draft.publisher; }
    const QString& author() const { return m_draft.author; }
    const QString& yield() const { return m_draft.yield; }
    const QString& summary() const { return m_draft.summary; }
    const QString& webPage() const { return m_webPage; }
    bool isWebPageReadable() const { return m_webPage.trimmed().isEmpty() || m_draft.sourceURL.has_value(); }
    QString prepMinutes() const { return minutes(m_draft.prepMinutes); }
    QString cookMinutes() const { return minutes(m_draft.cookMinutes); }
    QString totalMinutes() const { return minutes(m_draft.totalMinutes); }
    IngredientRows* ingredients() { return &m_ingredients; }
    StepRows* steps() { return &m_steps; }
    QUrl photo() const { return m_photo; }
    bool isMakingPhoto() const { return m_photoWork > 0; }
    const QString& photoProblem() const { return m_photoProblem; }

    void setTitle(const QString& text) { set(&RecipeDraft::title, text); }
    void setPublisher(const QString& text) { set(&RecipeDraft::publisher, text); }
    void setAuthor(const QString& text) { set(&RecipeDraft::author, text); }
    void setYield(const QString& text) { set(&RecipeDraft::yield, text); }
    void setSummary(const QString& text) { set(&RecipeDraft::summary, text); }
    /// What is no web address is kept in the field and left out of the draft.
    void setWebPage(const QString& text);
    /// A whole number of minutes; an empty text is an absent value, any other is ignored.
    void setPrepMinutes(const QString& text) { setMinutes(&RecipeDraft::prepMinutes, text); }
    void setCookMinutes(const QString& text) { setMinutes(&RecipeDraft::cookMinutes, text); }
    void setTotalMinutes(const QString& text) { setMinutes(&RecipeDraft::totalMinutes, text); }

    Q_INVOKABLE void pasteIngredients();
    /// Pastes a text of several lines over a part of a row's text. Returns the last row written; -1, and
    /// nothing is changed, for a text of one line, which the field itself pastes.
    Q_INVOKABLE int pasteIntoIngredient(int row, int selectionStart, int selectionEnd);
    /// Whether the pasteboard held a picture, which then becomes the photo.
    Q_INVOKABLE bool pastePhoto();
    Q_INVOKABLE void choosePhoto(const QUrl& file);
    Q_INVOKABLE void removePhoto();
    Q_INVOKABLE void save();
    Q_INVOKABLE void cancel();
    /// Has what changed kept now rather than in a moment.
    void keepNow();

Q_SIGNALS:
    void openChanged();
    void edited();
    void photoChanged();
    /// The sheet is to go away; `draft` is to be stored.
    void saved(const ovrin::RecipeDraft& draft);
    void cancelled();
    /// What has been written so far, to be kept against a crash; not at every key.
    void worthKeeping(const ovrin::RecipeDraft& draft);

private:
    static QString minutes(std::optional<qint64> value)
    {
        return value ? QString::number(*value) : QString();
    }
    void set(QString RecipeDraft::*field, const QString& text);
    void setMinutes(std::optional<qint64> RecipeDraft::*field, const QString& text);
    void showPhoto();
    void close();
    QCoro::Task<void> makePhoto(QByteArray bytes);

    PhotoMaker& m_photoMaker;
    Pasteboard& m_pasteboard;
    DraftPhotos& m_photos;
    QTimer m_keepSoon;

    bool m_isOpen = false;
    QString m_heading;
    QString m_notice;
    RecipeDraft m_original;
    /// Everything but ingredients and steps, which their models hold.
    RecipeDraft m_draft;
    QString m_webPage;
    IngredientRows m_ingredients;
    StepRows m_steps;

    QUrl m_photo;
    QString m_photoProblem;
    int m_photoWork = 0;
    /// Ends the photo work that a newer choice, or closing, makes pointless.
    std::stop_source m_photoStop;
};

} // namespace ovrin
