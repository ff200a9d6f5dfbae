// The functions of public.js with any texts. Fields: one byte that omits arguments, three texts.

#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/text.h"

#include <QCoreApplication>
#include <QFile>
#include <QJSEngine>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

class Script
{
public:
    Script()
    {
        QFile file(QStringLiteral(PUBLIC_SCRIPT));
        Check(file.open(QIODevice::ReadOnly), "the script can be read");
        Check(!engine_.evaluate(QString::fromUtf8(file.readAll())).isError(), "the script loads");
        engine_.evaluate(QStringLiteral(
            "var sent = []; var uninstallMgr = { sendUserInfo: function(window, action, attribute,"
            " source) { sent = [window, action, attribute, source] } };"
            "function isJson(text) { try { JSON.parse(text); return true } catch (e) { return false"
            " } }"));
    }

    QJSValue Call(const char *function, const QJSValueList &arguments)
    {
        QJSValue callee = engine_.globalObject().property(QString::fromLatin1(function));
        const QJSValue result = callee.call(arguments);
        Check(!result.isError(), "no function throws");
        return result;
    }

    /// The attribute of the usage event that the call sends.
    QString Sent(const char *function, const QJSValue &attribute, const QString &source)
    {
        Call(function, {QStringLiteral("W"), QStringLiteral("A"), attribute, source});
        const QJSValue sent = engine_.globalObject().property(QStringLiteral("sent"));
        Check(sent.property(0).toString() == QLatin1String("W") &&
                  sent.property(1).toString() == QLatin1String("A") &&
                  sent.property(2).isString() && sent.property(3).toString() == source,
              "window, action and source are unchanged");
        return sent.property(2).toString();
    }

    /// A list of one entry for each pair of neighbours in `texts`.
    QJSValue Entries(const QStringList &texts)
    {
        QJSValue list = engine_.newArray();
        for (int index = 0; index + 1 < texts.size(); ++index) {
            QJSValue entry = engine_.newObject();
            entry.setProperty(QStringLiteral("key"), texts[index]);
            entry.setProperty(QStringLiteral("value"), texts[index + 1]);
            list.setProperty(static_cast<quint32>(index), entry);
        }
        return list;
    }

private:
    QJSEngine engine_;
};

QJsonDocument Document(const QString &text)
{
    return QJsonDocument::fromJson(text.toUtf8());
}

void CheckJsonEvent(Script &script, const QString &text, const QString &source)
{
    const QString sent = script.Sent("sendUserInfoEx", text, source);
    const bool isJson = script.Call("isJson", {text}).toBool();
    Check(isJson || sent == text, "text that is not JSON is unchanged");
    Check(!isJson || script.Call("isJson", {sent}).toBool(), "JSON stays JSON");
    Check(script.Sent("sendUserInfoEx", sent, source) == sent, "a second call changes nothing");
    if (isJson && !Document(text).isNull() && !HasUnpairedSurrogates(sent)) {
        Check(Document(sent) == Document(text), "the JSON document is equal");
    }
}

void CheckListEvent(Script &script, const QStringList &texts)
{
    const QString sent = script.Sent("sendUserInfo", script.Entries(texts), texts[2]);
    const QString expected = QStringLiteral("{\"") + texts[0] + QStringLiteral("\":\"") + texts[1] +
                             QStringLiteral("\",\"") + texts[1] + QStringLiteral("\":\"") +
                             texts[2] + QStringLiteral("\"}");
    Check(sent == expected, "keys and values are quoted, in their order");
    Check(script.Sent("sendUserInfo", script.Entries({}), texts[2]).isEmpty(),
          "an empty list gives an empty text");
}

void CheckRichText(Script &script, unsigned omitted, const QStringList &texts)
{
    // An omitted argument is undefined or null.
    const auto argument = [omitted, &texts](int index) {
        const unsigned form = (omitted >> 2U * static_cast<unsigned>(index)) & 3U;
        return form == 1   ? QJSValue(QJSValue::UndefinedValue)
               : form == 2 ? QJSValue(QJSValue::NullValue)
                           : QJSValue(texts[index]);
    };
    const QJSValue second = argument(1);
    const QJSValue third = argument(2);
    const QString shown = texts[0];
    const QString target = !second.isString() ? QStringLiteral("https://www.torvan.example")
                           : second.toString().isEmpty() ? shown
                                                         : second.toString();
    const bool hasColour = third.isString() && !third.toString().isEmpty();
    Check(script.Call("makeLink", {shown, second, third}).toString() ==
              QStringLiteral("<style>{text-decoration: underline;color:") +
                  (hasColour ? third.toString() : QStringLiteral("#037dff")) +
                  QStringLiteral("} </style><a href=") + target + QLatin1Char('>') + shown +
                  QStringLiteral("</a>"),
          "makeLink gives a link");
    const auto style = [](const char *name, const QJSValue &value) {
        const bool given = value.isString() && !value.toString().isEmpty();
        return given ? QString::fromLatin1(name) + value.toString() : QString();
    };
    Check(script.Call("makeColorFont", {shown, texts[1], second, third}).toString() ==
              QStringLiteral("<span style=\"color:") + texts[1] + style(";font-weight:", second) +
                  style(";font-size:", third) + QStringLiteral("\">") + shown +
                  QStringLiteral("</span>"),
          "makeColorFont gives a coloured text");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int count = 0;
    static const QCoreApplication application(count, nullptr);
    static Script script;
    if (size == 0) {
        return 0;
    }
    const auto fields = Fields<3>(data + 1, size - 1);
    const QStringList texts = {Text(fields[0]), Text(fields[1]), Text(fields[2])};
    CheckJsonEvent(script, texts[0], texts[1]);
    CheckListEvent(script, texts);
    CheckRichText(script, data[0], texts);
    return 0;
}
