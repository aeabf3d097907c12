// The prompter of the real window: file dialogs and message boxes.
#pragma once

#include "prompter.h"

namespace tarn::host {

class WidgetPrompter final : public Prompter
{
public:
    QString openFileName(QWidget *parent, const QString &title, const QString &folder) override;
    QString saveFileName(QWidget *parent, const QString &title, const QString &folder) override;
    Answer question(QWidget *parent, const QString &title, const QString &text) override;
    Answer unsavedChanges(QWidget *parent, const QString &text) override;
    void warning(QWidget *parent, const QString &title, const QString &text) override;
};

} // namespace tarn::host
