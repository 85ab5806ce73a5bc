#include "ui/support/SampleLibrary.h"

#include "imaging/ImageProcessing.h"

#include <QtGui/QPainter>

#include <random>

namespace ovrin {

QImage drawnDish(int seed, QSize size)
{
    std::mt19937 random(static_cast<unsigned>(seed));
    const auto number = [&random](int from, int to) {
        return from + static_cast<int>(random() % (to - from + 1));
    };
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QColor table = QColor::fromHsv(number(15, 45), number(60, 130), number(70, 190));
    for (int x = 0; x < size.width(); x += size.width() / 9 + 1) {
        painter.setBrush(table.darker(number(95, 112)));
        painter.drawRect(x, 0, size.width() / 9 + 2, size.height());
    }
    const int side = qMin(size.width(), size.height());
    const QPoint middle(size.width() / 2 + number(-side / 12, side / 12), size.height() / 2);
    const auto disc = [&](int radius, const QColor& color) {
        painter.setBrush(color);
        painter.drawEllipse(middle, radius, radius);
    };
    disc(side * 47 / 100, QColor(0, 0, 0, 50));
    disc(side * 45 / 100, QColor(240, 238, 232));
    disc(side * 36 / 100, QColor(226, 222, 212));
    const int hue = number(0, 60);
    disc(side * 33 / 100, QColor::fromHsv(hue, number(120, 220), number(140, 220)));
    for (int i = 0; i < 90; ++i) {
        const double angle = number(0, 6283) / 1000.0;
        const int distance = number(0, side * 29 / 100);
        const int radius = number(side / 90, side / 28);
        const bool isHerb = i % 5 == 0;
        painter.setBrush(
            isHerb ? QColor::fromHsv(number(90, 125), 170, number(90, 170))
                   : QColor::fromHsv((hue + number(0, 30)) % 360, number(110, 230), number(120, 250)));
        painter.drawEllipse(middle + QPoint(static_cast<int>(distance * std::cos(angle)),
                                            static_cast<int>(distance * std::sin(angle))),
                            radius, isHerb ? radius / 3 + 1 : radius);
    }
    return image;
}

QByteArray toJpeg(const QImage& image)
{
    return ImageProcessing::jpegData(image).value_or(QByteArray());
}

RecipeDraft fullRecipe()
{
    RecipeDraft draft;
    draft.title = QStringLiteral("Lasagna alla Bolognese");
    draft.publisher = QStringLiteral("Casa Emilia");
    draft.author = QStringLiteral("Ada Bruni");
    draft.summary =
        QStringLiteral("A slow ragù between thin sheets of egg pasta, with a white sauce that holds it all "
                       "together. Better on the second day.");
    draft.sourceURL = QUrl(QStringLiteral("https://casaemilia.example/lasagna"));
    draft.yield = QStringLiteral("8 servings");
    draft.prepMinutes = 45;
    draft.cookMinutes = 150;
    draft.totalMinutes = 195;
    draft.ingredients = {QStringLiteral("1 onion, finely chopped"),
                         QStringLiteral("2 carrots, finely chopped"),
                         QStringLiteral("500 g minced beef"),
                         QStringLiteral("1½ cups tomato passata"),
                         QStringLiteral("For the white sauce:"),
                         QStringLiteral("6 tablespoons butter"),
                         QStringLiteral("½ cup flour"),
                         QStringLiteral("4 cups milk"),
                         QStringLiteral("Kosher salt and black pepper, more than you would think")};
    draft.steps = {
        {QUuid::createUuid(),
         std::nullopt,
         {QStringLiteral(
              "Warm the olive oil in a heavy pot. Cook the onions and carrots over low heat until soft and "
              "sweet, 12–15 minutes."),
          QStringLiteral(
              "Raise the heat, add the minced beef and brown it well, breaking it up, about 8 minutes.")}},
        {QUuid::createUuid(),
         QStringLiteral("Simmer"),
         {QStringLiteral(
             "Pour in the tomato passata and a glass of water. Simmer very gently, half covered, for 2 "
             "hours, stirring now and then.")}},
        {QUuid::createUuid(),
         QStringLiteral("White sauce"),
         {QStringLiteral(
              "Melt the butter, stir in the flour and cook for 2 minutes. Add the milk little by little, "
              "whisking, and season with salt."),
          QStringLiteral(
              "Layer everything and bake at 190 °C for 40 minutes, until it bubbles at the edges.")}}};
    return draft;
}

void fill(Library& library, int count, const QList<QByteArray>& given)
{
    static const char* const titles[]{
        "Shakshuka with Feta",
        "Grandma’s Yeast Dumplings",
        "Lasagna alla Bolognese",
        "No-Knead Bread",
        "Hoisin Pork Belly with Spring Onions and Toasted Sesame",
        "Hummus, Flatbread and a Chopped Salad",
        "Penne cinque pi",
        "Almond Cake",
        "Butter Chicken",
        "Oatmeal Pancakes",
        "Wholemeal Pizza",
        "The Slowest, Softest, Most Patient Oven-Baked Aubergines with Tahini, Pomegranate "
        "Seeds, Mint and Everything Else",
        "Crème brûlée",
        "مجدرة"};
    static const char* const publishers[]{"Weeknight Table", "", "Casa Emilia", "The Slow Oven",
                                          "Red Lantern"};
    QList<QByteArray> photos = given;
    for (int seed = 0; given.isEmpty() && seed < 8; ++seed)
        photos.append(toJpeg(drawnDish(seed, seed % 3 == 2 ? QSize(600, 900) : QSize(1000, 700))));
    for (int i = count - 1; i >= 0; --i) {
        RecipeDraft draft = fullRecipe();
        draft.title = QString::fromUtf8(titles[i % std::size(titles)]);
        if (i >= static_cast<int>(std::size(titles)))
            draft.title += QStringLiteral(" %1").arg(i);
        draft.publisher = QString::fromUtf8(publishers[i % std::size(publishers)]);
        if (i % 10 != 1 && i % 14 != 11)
            draft.imageData = photos.at(i % photos.size());
        const RecipePtr recipe = library.add(draft);
        if (i % 4 == 0)
            recipe->setSaved(true);
        if (i % 7 == 0)
            recipe->setTimesCooked(i % 3 + 1);
    }
}

} // namespace ovrin
