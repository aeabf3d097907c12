// A prompter for tests: answers the window's questions and file dialogs from a script, and
// remembers what it was asked and warned of.
#pragma once

#include "prompter.h"

#include <QList>
#include <QStringList>

namespace tarn::host::test {

class ScriptedPrompter final : public Prompter
{
public:
    QString openFileName(QWidget *, const QString &, const QString &) override
    {
        return paths.isEmpty() ? QString() : paths.takeFirst();
    }
    QString saveFileName(QWidget *, const QString &, const QString &) override
    {
        return paths.isEmpty() ? QString() : paths.takeFirst();
    }
    // Unscripted questions are answered No, and unsaved changes Cancel: the cautious answers.
    Answer question(QWidget *, const QString &, const QString &text) override
    {
        asked << text;
        return answers.isEmpty() ? Answer::No : answers.takeFirst();
    }
    Answer unsavedChanges(QWidget *, const QString &text) override
    {
        asked << text;
        return answers.isEmpty() ? Answer::Cancel : answers.takeFirst();
    }
    void warning(QWidget *, const QString &, const QString &text) override { warned << text; }

    QStringList paths;
    QList<Answer> answers;
    QStringList asked;
    QStringList warned;
};

} // namespace tarn::host::test
