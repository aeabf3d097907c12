// The languages the bench host speaks: the catalogues of the module and the host, and Qt's own.
#pragma once

#include <QList>
#include <QStringList>

class QLocale;
class QTranslator;

namespace tarn::host {

// The languages with a catalogue, as --lang takes them; English is the source language.
QStringList availableLanguages();

// Installs the module's, the host's and (where the system has it) Qt's own catalogue for the
// locale's language and returns the translators, owned by the application: deleting them takes
// them out again. Beneath them, and alone for English or a language without a catalogue, goes
// the host's English catalogue, which holds only the singulars of the texts counted with %n.
QList<QTranslator *> installTranslators(const QLocale &locale);

} // namespace tarn::host
