#pragma once

#include "material/Layout.h"
#include "material/Recipe.h"
#include "material/Sheet.h"

namespace ovrin::material {

/// A recipe set in a layout: lines with their places, and what a reader of the page
/// should find.
class Typesetter : public Sheet
{
public:
    Typesetter(const Recipe& recipe, const Layout& layout);

private:
    void setHead();
    void setFacts();
    void setIngredients();
    void setSteps();
    void setStep(qsizetype index, const QString& number);
    void setAfter();
    void setFurniture();
    void heading(const QString& word, const QString& other, bool shown);

    const Recipe& m_recipe;
    const Layout& m_layout;
};

} // namespace ovrin::material
