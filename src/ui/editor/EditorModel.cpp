#include "ui/editor/EditorModel.h"

#include "ui/desktop/Pasteboard.h"
#include "ui/images/DraftPhotos.h"
#include "ui/importing/ImportSheetModel.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QPointer>

#include <chrono>

namespace ovrin {

namespace {
constexpr qint64 largestPicture = 100LL * 1024 * 1024;
constexpr std::chrono::milliseconds keepDelay{800};
} // namespace

EditorModel::EditorModel(PhotoMaker& photoMaker, Pasteboard& pasteboard, DraftPhotos& photos, QObject* parent)
    : QObject(parent)
    , m_photoMaker(photoMaker)
    , m_pasteboard(pasteboard)
    , m_photos(photos)
{
    m_keepSoon.setSingleShot(true);
    m_keepSoon.setInterval(keepDelay);
    connect(&m_keepSoon, &QTimer::timeout, this, &EditorModel::keepNow);
    connect(&m_ingredients, &IngredientRows::edited, this, &EditorModel::edited);
    connect(&m_steps, &StepRows::edited, this, &EditorModel::edited);
    connect(this, &EditorModel::edited, this, [this] {
        if (m_isOpen)
            m_keepSoon.start();
    });
}

EditorModel::~EditorModel()
{
    m_photoStop.request_stop();
}

void EditorModel::open(const EditorSession& session)
{
    m_heading = session.heading;
    m_notice = session.notice;
    m_original = session.original.value_or(session.draft);
    m_draft = session.draft;
    m_webPage = m_draft.sourceURL ? m_draft.sourceURL->toString() : QString();
    m_ingredients.reset(m_draft.ingredients);
    m_steps.reset(m_draft.steps);
    m_photoProblem.clear();
    m_photoStop = std::stop_source();
    m_isOpen = true;
    Q_EMIT openChanged();
    showPhoto();
    Q_EMIT edited();
}

RecipeDraft EditorModel::draft() const
{
    RecipeDraft draft = m_draft;
    draft.ingredients = m_ingredients.lines();
    draft.steps = m_steps.steps();
    return draft;
}

bool EditorModel::isChanged() const
{
    return m_isOpen && (draft() != m_original || !isWebPageReadable());
}

void EditorModel::set(QString RecipeDraft::*field, const QString& text)
{
    if (m_draft.*field == text)
        return;
    m_draft.*field = text;
    Q_EMIT edited();
}

void EditorModel::setMinutes(std::optional<qint64> RecipeDraft::*field, const QString& text)
{
    std::optional<qint64> value;
    if (const QString digits = text.trimmed(); !digits.isEmpty()) {
        bool isNumber = false;
        value = digits.toLongLong(&isNumber);
        if (!isNumber)
            return;
    }
    if (m_draft.*field == value)
        return;
    m_draft.*field = value;
    Q_EMIT edited();
}

void EditorModel::setWebPage(const QString& text)
{
    if (m_webPage == text)
        return;
    m_webPage = text;
    m_draft.sourceURL = ImportSheetModel::webAddress(text);
    Q_EMIT edited();
}

void EditorModel::pasteIngredients()
{
    m_ingredients.pasteList(m_pasteboard.text());
}

int EditorModel::pasteIntoIngredient(int row, int selectionStart, int selectionEnd)
{
    const QString pasted = m_pasteboard.text();
    if (!IngredientRows::hasLineBreak(pasted) || row < 0 || row >= m_ingredients.lines().size())
        return -1;
    const QString before = m_ingredients.lines().at(row);
    return m_ingredients.write(row, before.left(selectionStart) + pasted + before.mid(selectionEnd));
}

bool EditorModel::pastePhoto()
{
    const std::optional<Pasteboard::Picture> picture = m_pasteboard.picture();
    if (picture)
        makePhoto(picture->bytes);
    return picture.has_value();
}

void EditorModel::choosePhoto(const QUrl& url)
{
    const QFileInfo info(url.toLocalFile());
    QFile file(info.filePath());
    // A pipe or a device would never end: only what is a plain file of bounded size is read.
    if (!info.isFile() || info.size() > largestPicture || !file.open(QIODevice::ReadOnly)) {
        m_photoProblem = tr("This file couldn’t be read as a picture. Choose another one.");
        Q_EMIT photoChanged();
        return;
    }
    makePhoto(file.readAll());
}

QCoro::Task<void> EditorModel::makePhoto(QByteArray bytes)
{
    m_photoStop.request_stop();
    m_photoStop = std::stop_source();
    const std::stop_token stop = m_photoStop.get_token();
    ++m_photoWork;
    m_photoProblem.clear();
    Q_EMIT photoChanged();

    const QPointer<EditorModel> self(this);
    const std::optional<Photo> photo = co_await m_photoMaker.photo(std::move(bytes), stop);
    if (!self)
        co_return;
    --m_photoWork;
    if (stop.stop_requested()) {
        Q_EMIT photoChanged();
        co_return;
    }
    if (photo)
        m_draft.imageData = photo->jpeg;
    else
        m_photoProblem = tr("This file couldn’t be read as a picture. Choose another one.");
    showPhoto();
    if (photo)
        Q_EMIT edited();
}

void EditorModel::removePhoto()
{
    m_photoStop.request_stop();
    m_photoProblem.clear();
    const bool isChange = m_draft.imageData.has_value();
    m_draft.imageData.reset();
    showPhoto();
    if (isChange)
        Q_EMIT edited();
}

void EditorModel::showPhoto()
{
    m_photo = m_draft.imageData ? m_photos.show(*m_draft.imageData) : QUrl();
    Q_EMIT photoChanged();
}

void EditorModel::save()
{
    if (!m_isOpen)
        return;
    const RecipeDraft result = draft();
    close();
    Q_EMIT saved(result);
}

void EditorModel::cancel()
{
    if (!m_isOpen)
        return;
    close();
    Q_EMIT cancelled();
}

void EditorModel::close()
{
    m_photoStop.request_stop();
    m_keepSoon.stop();
    m_photos.hide();
    m_isOpen = false;
    Q_EMIT openChanged();
}

void EditorModel::keepNow()
{
    m_keepSoon.stop();
    if (isChanged())
        Q_EMIT worthKeeping(draft());
}

} // namespace ovrin
