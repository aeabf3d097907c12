// The questions the host asks its user, behind a seam that tests answer.
#pragma once

#include <QString>

class QWidget;

namespace tarn::host {

// Prompter stands between the host and its modal dialogs: the window uses WidgetPrompter, tests a
// scripted one, so no test ever waits on a real file dialog or message box.
class Prompter
{
public:
    enum class Answer { Yes, No, Save, Discard, Cancel };

    virtual ~Prompter();

    // An empty path when the user cancelled.
    virtual QString openFileName(QWidget *parent, const QString &title, const QString &folder) = 0;
    virtual QString saveFileName(QWidget *parent, const QString &title, const QString &folder) = 0;
    // Yes or No.
    virtual Answer question(QWidget *parent, const QString &title, const QString &text) = 0;
    // Save, Discard or Cancel.
    virtual Answer unsavedChanges(QWidget *parent, const QString &text) = 0;
    virtual void warning(QWidget *parent, const QString &title, const QString &text) = 0;
};

} // namespace tarn::host
