#pragma once

#include "import/ImportCoordinator.h"
#include "ui/desktop/Appearance.h"
#include "ui/editor/DraftKeeper.h"
#include "ui/editor/EditorModel.h"
#include "ui/importing/ImportSheetModel.h"
#include "ui/library/LibraryModel.h"
#include "ui/recipe/RecipeViewModel.h"

#include <functional>

namespace ovrin {

class CookTimers;
class DesktopActions;
class DraftPhotos;
class FlagStore;
class Pasteboard;
class RecipePhotos;

/// The library window without its looks: which page and which sheet is shown, and what becomes of every way
/// in which a recipe is brought in, changed or removed.
class LibraryWindow : public QObject
{
    Q_OBJECT
    QML_NAMED_ELEMENT(LibraryWindow)
    QML_UNCREATABLE("made by the application")
    Q_PROPERTY(ovrin::LibraryModel* library READ library CONSTANT)
    Q_PROPERTY(ovrin::RecipeViewModel* recipe READ recipe CONSTANT)
    Q_PROPERTY(ovrin::EditorModel* editor READ editor CONSTANT)
    Q_PROPERTY(ovrin::ImportSheetModel* importSheet READ importSheet CONSTANT)
    Q_PROPERTY(QAbstractItemModel* timers READ timers CONSTANT)
    Q_PROPERTY(QString activity READ activity NOTIFY activityChanged)
    Q_PROPERTY(QString failure READ failure NOTIFY failureChanged)
    Q_PROPERTY(int waitingDrafts READ waitingDrafts NOTIFY waitingDraftsChanged)
    Q_PROPERTY(QString deletedTitle READ deletedTitle NOTIFY deletedChanged)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(bool canCook READ canCook CONSTANT)
    Q_PROPERTY(bool canImportFiles READ canImportFiles CONSTANT)
    Q_PROPERTY(bool canImportPictures READ canImportPictures CONSTANT)
    Q_PROPERTY(bool canAddGroceries READ canAddGroceries CONSTANT)
    Q_PROPERTY(bool isAddingGroceries READ isAddingGroceries NOTIFY isAddingGroceriesChanged)
    Q_PROPERTY(QString groceryMessage READ groceryMessage NOTIFY groceryMessageChanged)
    Q_PROPERTY(bool isReviewing READ isReviewing NOTIFY reviewingChanged)

public:
    /// Sends ingredient lines to a grocery list and gives the text to show, of success as of failure.
    using AddGroceries = std::function<QCoro::Task<QString>(QStringList lines, QString recipeTitle)>;

    struct Services
    {
        RecipeStore& store;
        ImportCoordinator& importer;
        PhotoMaker& photoMaker;
        RecipePhotos& photos;
        DraftPhotos& draftPhotos;
        Pasteboard& pasteboard;
        DesktopActions& desktop;
        FlagStore& flags;
        DraftKeeper drafts;
        QLocale locale;
        /// Null until there are timers; times are then plain words.
        CookTimers* timers = nullptr;
        /// Opens the cook window; without it the commands that lead there are not offered.
        std::function<void(QUuid)> cook;
        AddGroceries addGroceries;
        /// Whether PDFs can be read.
        bool importsFiles = false;
        /// Whether pictures can be.
        bool importsPictures = false;
    };
    explicit LibraryWindow(Services services, QObject* parent = nullptr);
    ~LibraryWindow() override;

    LibraryModel* library() { return &m_library; }
    RecipeViewModel* recipe() { return &m_recipe; }
    EditorModel* editor() { return &m_editor; }
    ImportSheetModel* importSheet() { return &m_importSheet; }
    QAbstractItemModel* timers() const;
    QString activity() const { return m_services.importer.activity(); }
    /// The message of the alert; empty when there is none.
    QString failure() const;
    int waitingDrafts() const { return m_services.importer.waitingDrafts(); }
    /// What "Undo" would bring back; empty when there is nothing.
    QString deletedTitle() const;
    /// Something to say in passing; empty when there is nothing.
    const QString& message() const { return m_message; }
    bool canCook() const { return static_cast<bool>(m_services.cook); }
    bool canImportPictures() const { return m_services.importsPictures; }
    bool canImportFiles() const { return m_services.importsFiles; }
    bool canAddGroceries() const { return static_cast<bool>(m_services.addGroceries); }
    bool isAddingGroceries() const { return m_isAddingGroceries; }
    const QString& groceryMessage() const { return m_groceryMessage; }
    bool isReviewing() const { return m_editing == Editing::Review; }

    /// The window is shown for the first time: seeds the sample recipe, offers a draft that a crash left
    /// behind.
    Q_INVOKABLE void appear();
    /// The application has come to the front.
    Q_INVOKABLE void becomeActive();

    Q_INVOKABLE void openRecipe(const QString& recipeId);
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void toggleSaved(const QString& recipeId);
    Q_INVOKABLE void openPage(const QString& recipeId);
    /// At once; can be undone for as long as the window is there.
    Q_INVOKABLE void deleteRecipe(const QString& recipeId);
    Q_INVOKABLE void undoDelete();
    Q_INVOKABLE void dismissDeleted();

    Q_INVOKABLE void createRecipe();
    Q_INVOKABLE void editRecipe();
    Q_INVOKABLE void prepareImportSheet();
    Q_INVOKABLE void startImport();
    Q_INVOKABLE void importFile(const QUrl& file);
    Q_INVOKABLE void cancelImport();
    Q_INVOKABLE void addManually();
    Q_INVOKABLE void dismissFailure();
    /// An address from the system: a file, one of our links.
    void handle(const QUrl& url) { m_services.importer.handle(url); }
    /// What is dropped: addresses, or a text that may be one. Whether there was anything to take.
    Q_INVOKABLE bool drop(const QList<QUrl>& urls, const QString& text);
    /// What is pasted outside of a text field: addresses, files, a picture. Whether there was anything to
    /// take.
    Q_INVOKABLE bool paste();

    Q_INVOKABLE void cook();
    /// One at a time: a second press while the task service is slow must not add everything twice.
    Q_INVOKABLE void addGroceries();
    /// Where the grocery list would be saved.
    Q_INVOKABLE QUrl groceryFile() const;
    Q_INVOKABLE void saveGroceries(const QUrl& file);
    Q_INVOKABLE void copyRecipe();
    Q_INVOKABLE void mailRecipe();
    /// A link in the directions. A mention of an ingredient comes back as `ingredientWanted`.
    Q_INVOKABLE void activateLink(const QString& address);
    Q_INVOKABLE void say(const QString& message);

Q_SIGNALS:
    void activityChanged();
    void failureChanged();
    void waitingDraftsChanged();
    void deletedChanged();
    void messageChanged();
    void isAddingGroceriesChanged();
    void groceryMessageChanged();
    void reviewingChanged();
    void ingredientWanted(int row);
    void importSheetWanted();

private:
    enum class Editing { Nothing, New, Edit, Review };

    void importAddress(const QUrl& url);
    void openImported();
    void review();
    void edit(Editing editing, const EditorSession& session);
    void onSaved(const RecipeDraft& draft);
    void onCancelled();
    void onWorthKeeping(const RecipeDraft& draft);
    void onGone(const RecipePtr& recipe);
    RecipePtr find(const QString& recipeId) const;
    QCoro::Task<void> sendGroceries();
    void setAddingGroceries(bool isAdding);
    void sayOfGroceries(const QString& message);

    Services m_services;
    LibraryModel m_library;
    RecipeViewModel m_recipe;
    EditorModel m_editor;
    ImportSheetModel m_importSheet;

    Editing m_editing = Editing::Nothing;
    /// The recipe under the editor.
    RecipePtr m_edited;
    /// Deleted here, the last one last.
    QList<RecipePtr> m_deleted;
    bool m_isDeletionShown = false;
    QString m_message;
    bool m_isAddingGroceries = false;
    QString m_groceryMessage;
};

} // namespace ovrin
