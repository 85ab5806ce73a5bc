#pragma once

#include "model/RecipeStore.h"
#include "ui/recipe/DirectionList.h"
#include "ui/recipe/IngredientList.h"

#include <QtGui/QColor>

namespace ovrin {

class RecipePhotos;

/// One recipe as the detail page shows it. Follows the record: whatever changes it, here or elsewhere, is
/// seen.
class RecipeViewModel : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(RecipeViewModel)
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    Q_PROPERTY(QString recipeId READ recipeId NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString byline READ byline NOTIFY changed)
    Q_PROPERTY(QString facts READ facts NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY changed)
    Q_PROPERTY(bool isSaved READ isSaved NOTIFY changed)
    Q_PROPERTY(bool isCooked READ isCooked NOTIFY changed)
    Q_PROPERTY(QString cookedLabel READ cookedLabel NOTIFY changed)
    Q_PROPERTY(bool hasPage READ hasPage NOTIFY changed)
    Q_PROPERTY(bool showsUnitsNote READ showsUnitsNote NOTIFY changed)
    Q_PROPERTY(QUrl photo READ photo NOTIFY changed)
    Q_PROPERTY(QColor firstTint READ firstTint NOTIFY changed)
    Q_PROPERTY(QColor secondTint READ secondTint NOTIFY changed)
    Q_PROPERTY(double scale READ scale WRITE setScale NOTIFY changed)
    Q_PROPERTY(QString scaleLabel READ scaleLabel NOTIFY changed)
    Q_PROPERTY(QString scaleNotice READ scaleNotice NOTIFY changed)
    Q_PROPERTY(QVariantList scaleChoices READ scaleChoices CONSTANT)
    Q_PROPERTY(bool hasIngredients READ hasIngredients NOTIFY changed)
    Q_PROPERTY(bool hasDirections READ hasDirections NOTIFY changed)
    Q_PROPERTY(ovrin::IngredientList* ingredients READ ingredients CONSTANT)
    Q_PROPERTY(ovrin::DirectionList* directions READ directions CONSTANT)

public:
    RecipeViewModel(RecipeStore& store, RecipePhotos& photos, const QLocale& locale,
                    QObject* parent = nullptr);

    /// Shows `recipe`, at its own amounts; null for none.
    void show(const RecipePtr& recipe);
    const RecipePtr& recipe() const { return m_recipe; }

    bool isShown() const { return m_recipe != nullptr; }
    QString recipeId() const;
    QString title() const { return m_recipe ? m_recipe->title() : QString(); }
    QString byline() const { return m_recipe ? m_recipe->byline() : QString(); }
    /// Times and yield in one line, the yield at the chosen scale.
    QString facts() const;
    QString summary() const { return m_recipe ? m_recipe->summary() : QString(); }
    QString notes() const { return m_recipe ? m_recipe->notes() : QString(); }
    void setNotes(const QString& notes);
    bool isSaved() const { return m_recipe && m_recipe->isSaved(); }
    bool isCooked() const { return m_recipe && m_recipe->timesCooked() > 0; }
    QString cookedLabel() const;
    bool hasPage() const { return m_recipe && m_recipe->sourceAddress(); }
    /// The units are the publisher's where there is a publisher and a page of theirs.
    bool showsUnitsNote() const { return hasPage() && !m_recipe->publisher().isEmpty(); }
    QUrl photo() const;
    QColor firstTint() const;
    QColor secondTint() const;
    double scale() const { return m_recipe ? m_recipe->scale() : 1; }
    void setScale(double factor);
    QString scaleLabel() const;
    /// Empty at the recipe's own amounts.
    QString scaleNotice() const;
    /// Maps with "factor" and "label".
    QVariantList scaleChoices() const;
    bool hasIngredients() const { return !m_ingredients.rows().isEmpty(); }
    bool hasDirections() const { return !m_directions.rows().isEmpty(); }
    IngredientList* ingredients() { return &m_ingredients; }
    DirectionList* directions() { return &m_directions; }
    /// The whole recipe as plain text, at the chosen scale.
    QString shareText() const;
    /// What goes to a grocery list: the scaled lines without the section headings.
    QStringList groceryLines() const;

    /// A page makes a long recipe's rows little by little: the first at once, some more with each frame.
    Q_INVOKABLE void showMore();
    /// Has the ingredient line at `row` among the rows by now.
    void showIngredient(int row);

    Q_INVOKABLE void toggleSaved();
    Q_INVOKABLE void recordCook();

Q_SIGNALS:
    void changed();
    /// Another recipe than before is shown, or none.
    void shown();
    /// The recipe was removed, here or by another program; nothing is shown any more.
    void gone(const ovrin::RecipePtr& recipe);

private:
    void refreshIngredients();
    void refreshDirections();

    RecipeStore& m_store;
    RecipePhotos& m_photos;
    QLocale m_locale;
    RecipePtr m_recipe;
    IngredientList m_ingredients;
    DirectionList m_directions;
};

} // namespace ovrin
