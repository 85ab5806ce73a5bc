#pragma once

#include "model/RecipeDraft.h"
#include "model/RecipeRecord.h"

#include <QtCore/QLocale>

#include <memory>
#include <string>

namespace ovrin {

class RecipeStore;
class SearchFolding;
struct ListedRecipe;

/// One recipe of the library, or one that is not in it yet. Main thread only.
///
/// A setter that changes something saves it at once and tells the store's observers; there is no separate
/// save. What only an open recipe shows (summary, steps, notes, photo) is read from the library when first
/// asked for. A recipe that was removed, here or by another process, stays a valid object that says
/// `isGone()`; changing it then changes the object alone.
class Recipe : public std::enable_shared_from_this<Recipe>
{
public:
    /// A new record: everything at its initial value, then `apply(draft)`.
    Recipe(const RecipeDraft& draft, Instant createdAt);
    /// A record as it stands, e.g. out of a backup.
    explicit Recipe(RecipeRecord record);
    /// For the store: one that it has listed, still outside of the library.
    explicit Recipe(ListedRecipe listed);
    ~Recipe();
    Recipe(const Recipe&) = delete;
    Recipe& operator=(const Recipe&) = delete;

    const QUuid& id() const { return m_record.id; }
    const QString& title() const { return m_record.title; }
    const QString& author() const { return m_record.author; }
    const QString& publisher() const { return m_record.publisher; }
    QString summary() const;
    std::optional<QUrl> sourceURL() const;
    /// The same, fully encoded, without making a URL of it: what addresses are compared by.
    const std::optional<QString>& sourceAddress() const { return m_record.sourceURL; }
    /// JPEG. Read anew at each call: whoever shows photos keeps the decoded ones.
    std::optional<QByteArray> imageData() const;
    /// Whether there is a photo, without reading it.
    bool hasImage() const { return m_hasImage; }
    const std::optional<QString>& tintHex() const { return m_record.tintHex; }
    const QString& yield() const { return m_record.yield; }
    std::optional<qint64> prepMinutes() const { return m_record.prepMinutes; }
    std::optional<qint64> cookMinutes() const { return m_record.cookMinutes; }
    std::optional<qint64> totalMinutes() const { return m_record.totalMinutes; }
    const QStringList& ingredients() const;
    QByteArray stepsData() const;
    QString notes() const;
    bool isSaved() const { return m_record.isSaved; }
    double scale() const { return m_record.scale; }
    Instant createdAt() const { return m_record.createdAt; }
    std::optional<Instant> lastCookedAt() const { return m_record.lastCookedAt; }
    qint64 timesCooked() const { return m_record.timesCooked; }

    void setTitle(const QString& title);
    void setAuthor(const QString& author);
    void setPublisher(const QString& publisher);
    void setSummary(const QString& summary);
    void setSourceURL(const std::optional<QUrl>& url);
    /// The tint is left alone; `apply` is what keeps the two together.
    void setImageData(const std::optional<QByteArray>& jpeg);
    void setTintHex(const std::optional<QString>& hex);
    void setYield(const QString& yield);
    void setPrepMinutes(std::optional<qint64> minutes);
    void setCookMinutes(std::optional<qint64> minutes);
    void setTotalMinutes(std::optional<qint64> minutes);
    void setIngredients(const QStringList& lines);
    void setStepsData(const QByteArray& json);
    void setNotes(const QString& notes);
    void setSaved(bool saved);
    void setScale(double scale);
    void setLastCookedAt(std::optional<Instant> at);
    void setTimesCooked(qint64 times);

    /// The decoded `stepsData`; none when that cannot be decoded.
    QList<RecipeStep> steps() const;
    void setSteps(const QList<RecipeStep>& steps);

    /// Copies an edited draft onto the record, cleaned up, as one change: lines trimmed and empty ones
    /// dropped, steps with fresh ids, the tint recomputed when the photo is another one.
    void apply(const RecipeDraft& draft);
    /// What can be edited; `imageURL` is absent.
    RecipeDraft draft() const;
    /// One more time cooked, at `now`, as one change.
    void recordCook(Instant now);

    /// The ingredient lines at the record's own scale.
    QStringList scaledIngredients(const QLocale& locale) const;
    QStringList scaledIngredients(double factor, const QLocale& locale) const;
    /// "Publisher • Author"; either alone; empty when there is neither.
    QString byline() const;
    /// "Prep Time: 10 min, Total Time: 1 hr"; empty without times.
    QString timeSummary() const;
    /// The whole recipe as plain text, at the record's own scale.
    QString shareText(const QLocale& locale) const;
    QString shareText(double factor, const QLocale& locale) const;

    /// All twenty attributes, the lazily read ones and the photo included.
    RecipeRecord record() const;

    /// What the search looks in: title, publisher and ingredient lines, folded; made once and kept.
    const std::string& searchKey(const SearchFolding& folding) const;

    bool isInLibrary() const { return m_store != nullptr; }
    bool isGone() const { return m_isGone; }

private:
    friend class RecipeStore;
    class Change;
    /// Read together, when the first of them is asked for.
    static constexpr RecipeAttributes details{RecipeAttribute::Summary | RecipeAttribute::StepsData |
                                              RecipeAttribute::Notes};

    template<typename T>
    void assign(T RecipeRecord::*field, const T& value, RecipeAttribute attribute);
    void noteChange(RecipeAttribute attribute);
    /// False when they are not here and cannot be read.
    bool loadDetails() const;
    void readIngredients() const;
    void loadAll();
    void releasePhoto();
    /// Becomes what the library says; `logged` names what changed there besides what a listing shows.
    RecipeAttributes takeOver(ListedRecipe listed, RecipeAttributes logged);

    /// Of the lazily read attributes only what `m_hasDetails` and `m_holdsImage` vouch for, and the
    /// ingredient lines once `m_unreadIngredients` have been read.
    mutable RecipeRecord m_record;
    /// As the library has them.
    mutable std::optional<QByteArray> m_unreadIngredients;
    mutable bool m_hasDetails = true;
    bool m_hasImage = false;
    /// The photo is in `m_record`: always outside a library, in one only until it is durable.
    bool m_holdsImage = true;
    bool m_isGone = false;

    /// Null outside a library.
    RecipeStore* m_store = nullptr;
    RecipeAttributes m_changed;
    int m_changeDepth = 0;
    /// Order of insertion among recipes of one creation time.
    qint64 m_order = 0;
    /// Empty until it is needed.
    mutable std::string m_searchKey;
};

using RecipePtr = std::shared_ptr<Recipe>;

} // namespace ovrin
