// The desktop's task lists bring thirty libraries along that nothing else of the application needs: they are
// loaded with the first ingredient that is sent there, not with the window.
#include "platform/reminders/DesktopReminderStore.h"
#include "reminders/GroceryList.h"

/// `store` is made when there is none. No exception leaves here.
extern "C" Q_DECL_EXPORT void ovrinAddToGroceries(std::unique_ptr<ovrin::ReminderStore>& store,
                                                  const QStringList& lines, const QString& recipeTitle,
                                                  QString& answer)
{
    if (!store)
        store = std::make_unique<ovrin::DesktopReminderStore>();
    answer = ovrin::GroceryList::addAndTell(*store, lines, recipeTitle);
}
