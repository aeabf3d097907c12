// Loading the compiled-in catalogues for a locale.
#include "languages.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

// The host's catalogues live in a static library, whose resources are not registered by a
// loader; the module's are registered when its shared library loads. Outside any namespace, as
// the resource's initialiser is declared where this is expanded.
static void registerHostCatalogues()
{
    Q_INIT_RESOURCE(tarn_bench_host_i18n);
}

namespace {

const QString kCatalogues = QStringLiteral(":/i18n");

} // namespace

namespace tarn::host {

QStringList availableLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("de"), QStringLiteral("zh_CN")};
}

QList<QTranslator *> installTranslators(const QLocale &locale)
{
    registerHostCatalogues();
    QList<QTranslator *> installed;
    const auto install
        = [&](const QLocale &language, const QString &name, const QString &directory) {
              auto *translator = new QTranslator(QCoreApplication::instance());
              if (translator->load(language, name, QStringLiteral("_"), directory)
                  && QCoreApplication::installTranslator(translator)) {
                  installed.append(translator);
              } else {
                  delete translator;
              }
          };
    // The translator installed last is asked first, so a language's own catalogue, complete as
    // it is, always answers before the English plurals.
    install(QLocale(QLocale::English), QStringLiteral("tarn_bench_host"), kCatalogues);
    if (locale.language() == QLocale::English || locale.language() == QLocale::C)
        return installed;

    install(locale, QStringLiteral("tarn_programmer"), kCatalogues);
    install(locale, QStringLiteral("tarn_bench_host"), kCatalogues);
    install(
        locale, QStringLiteral("qtbase"), QLibraryInfo::location(QLibraryInfo::TranslationsPath));
    return installed;
}

} // namespace tarn::host
