// Prints a line for each call of the program whose order matters. The linker redirects these calls
// to the wrappers here (--wrap in CMakeLists.txt); the names are mangled C++ names.

#include <QList>
#include <QObject>

#include <cstdio>
#include <unistd.h>

class QFont;
class QIcon;
class QQmlContext;
class QString;
class QUrl;

namespace {

/// The objects whose end is noted, as long as they live.
QList<QObject *> alive;

void NoteTheEndOf(void *created, const char *note)
{
    auto *const object = static_cast<QObject *>(created);
    alive.append(object);
    QObject::connect(object, &QObject::destroyed, [object, note] {
        std::puts(note);
        alive.removeOne(object);
    });
}

} // namespace

#define KTR_NOTED(symbol, note, result, parameters, arguments)                                     \
    extern "C" result __real_##symbol parameters;                                                  \
    extern "C" result __wrap_##symbol parameters;                                                  \
    extern "C" result __wrap_##symbol parameters                                                   \
    {                                                                                              \
        std::puts(note);                                                                           \
        return __real_##symbol arguments;                                                          \
    }

#define KTR_NOTED_OBJECT(symbol, note, parameters, arguments)                                      \
    extern "C" void __real_##symbol parameters;                                                    \
    extern "C" void __wrap_##symbol parameters;                                                    \
    extern "C" void __wrap_##symbol parameters                                                     \
    {                                                                                              \
        std::puts(note);                                                                           \
        __real_##symbol arguments;                                                                 \
        NoteTheEndOf(self, note " destroyed");                                                     \
    }

KTR_NOTED(_ZN16QCoreApplication12setAttributeEN2Qt20ApplicationAttributeEb,
          attribute == Qt::AA_EnableHighDpiScaling ? "high-DPI scaling"
          : attribute == Qt::AA_UseHighDpiPixmaps  ? "high-DPI pixmaps"
                                                   : "another attribute",
          void,
          (Qt::ApplicationAttribute attribute, bool on),
          (attribute, on))
KTR_NOTED_OBJECT(_ZN15QGuiApplicationC1ERiPPci,
                 "application",
                 (void *self, int &argc, char **argv, int flags),
                 (self, argc, argv, flags))
KTR_NOTED(_ZN15QGuiApplication7setFontERK5QFont, "font", void, (const QFont &font), (font))
KTR_NOTED(_ZN9QResource16registerResourceERK7QStringS2_,
          "bundle",
          bool,
          (const QString &file, const QString &root),
          (file, root))
// The ABI passes an object that is not trivially copyable by its address.
KTR_NOTED_OBJECT(_ZN13CUninstallMgrC1E20UninstallEnvironment,
                 "controller",
                 (void *self, void *environment),
                 (self, environment))
KTR_NOTED_OBJECT(_ZN21QQmlApplicationEngineC1EP7QObject,
                 "engine",
                 (void *self, QObject *parent),
                 (self, parent))
KTR_NOTED(_ZN11QQmlContext18setContextPropertyERK7QStringP7QObject,
          "context property",
          void,
          (QQmlContext * self, const QString &name, QObject *object),
          (self, name, object))
KTR_NOTED(_ZN15QGuiApplication13setWindowIconERK5QIcon, "icon", void, (const QIcon &icon), (icon))
KTR_NOTED_OBJECT(_ZN11QTranslatorC1EP7QObject,
                 "translator",
                 (void *self, QObject *parent),
                 (self, parent))
KTR_NOTED(_ZN21QQmlApplicationEngine4loadERK4QUrl,
          "load",
          void,
          (void *self, const QUrl &url),
          (self, url))
KTR_NOTED(_ZN15QGuiApplication4execEv, "loop", int, (), ())
KTR_NOTED(_Z20ReleaseInstanceMutexv, "mutex released", void, (), ())
KTR_NOTED(_Z22RemoveWindowHandleFilev, "handle file removed", void, (), ())
KTR_NOTED(_ZN16QCoreApplication4quitEv, "quit", void, (), ())

extern "C" [[noreturn]] void __wrap_exit(int status);
extern "C" void __wrap_exit(int status)
{
    std::printf("exit(%d)\n", status);
    while (!alive.isEmpty()) {
        alive.last()->~QObject(); // shows that the end of each would have been noted
    }
    std::fflush(stdout);
    ::_exit(status);
}
