// Notes the calls of the program whose order matters, one line each. The linker leads each of them
// here first (--wrap in CMakeLists.txt); the names are those of the compiler.

#include <Qt>

#include <cstdio>
#include <unistd.h>

class QFont;
class QIcon;
class QObject;
class QQmlContext;
class QString;
class QUrl;

#define KTR_NOTED(symbol, note, result, parameters, arguments)                                     \
    extern "C" result __real_##symbol parameters;                                                  \
    extern "C" result __wrap_##symbol parameters;                                                  \
    extern "C" result __wrap_##symbol parameters                                                   \
    {                                                                                              \
        std::puts(note);                                                                           \
        return __real_##symbol arguments;                                                          \
    }

KTR_NOTED(_ZN16QCoreApplication12setAttributeEN2Qt20ApplicationAttributeEb,
          attribute == Qt::AA_EnableHighDpiScaling ? "high-DPI scaling"
          : attribute == Qt::AA_UseHighDpiPixmaps  ? "high-DPI pixmaps"
                                                   : "another attribute",
          void,
          (Qt::ApplicationAttribute attribute, bool on),
          (attribute, on))
KTR_NOTED(_ZN15QGuiApplicationC1ERiPPci,
          "application",
          void,
          (void *self, int &argc, char **argv, int flags),
          (self, argc, argv, flags))
KTR_NOTED(_ZN15QGuiApplication7setFontERK5QFont, "font", void, (const QFont &font), (font))
KTR_NOTED(_ZN9QResource16registerResourceERK7QStringS2_,
          "bundle",
          bool,
          (const QString &file, const QString &root),
          (file, root))
// An object that cannot be copied by its bytes is passed by its address.
KTR_NOTED(_ZN13CUninstallMgrC1E20UninstallEnvironment,
          "controller",
          void,
          (void *self, void *environment),
          (self, environment))
KTR_NOTED(_ZN21QQmlApplicationEngineC1EP7QObject,
          "engine",
          void,
          (void *self, QObject *parent),
          (self, parent))
KTR_NOTED(_ZN11QQmlContext18setContextPropertyERK7QStringP7QObject,
          "context property",
          void,
          (QQmlContext * self, const QString &name, QObject *object),
          (self, name, object))
KTR_NOTED(_ZN15QGuiApplication13setWindowIconERK5QIcon, "icon", void, (const QIcon &icon), (icon))
KTR_NOTED(
    _ZN11QTranslatorC1EP7QObject, "translator", void, (void *self, QObject *parent), (self, parent))
KTR_NOTED(_ZN21QQmlApplicationEngine4loadERK4QUrl,
          "load",
          void,
          (void *self, const QUrl &url),
          (self, url))
KTR_NOTED(_ZN15QGuiApplication4execEv, "loop", int, (), ())
KTR_NOTED(_ZN16QCoreApplication4quitEv, "quit", void, (), ())
KTR_NOTED(_ZN11QTranslatorD1Ev, "translator destroyed", void, (void *self), (self))
KTR_NOTED(_ZN21QQmlApplicationEngineD1Ev, "engine destroyed", void, (void *self), (self))
KTR_NOTED(_ZN15QGuiApplicationD1Ev, "application destroyed", void, (void *self), (self))

extern "C" [[noreturn]] void __wrap_exit(int status);
extern "C" void __wrap_exit(int status)
{
    std::printf("exit(%d)\n", status);
    std::fflush(stdout);
    ::_exit(status);
}
