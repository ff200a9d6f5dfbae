// Shared by every page and control (import "public.js" as Public): the look of the push buttons
// and pop-up windows, and the small helpers for usage events, rich text and message boxes.
//
// Deliberately no ".pragma library": the functions reach `uninstallMgr` and `window` through the
// file that imports them.

// Brand blue: filled buttons, frames, links
var accentColor = "#1F6FFF"

// Text on the pages
var pageTextColor = "#090A0A"

// Pop-up windows
var winRadius = 8
var winBorderWidth = 1
var winBorderColor = "#e1e7ef"
var winTextColor = "#555b66"
var winShadowColor = "#48475963"
var winShadowBlur = 8

// Push buttons: one colour per state. A value under `enabled` may be split by state as well, and
// a table may have a `gradient` of two stops, which ZoDefaultRoundButton draws.
var lightBackground = ["#E0EAFC", "#C5D5F3", "#A6BDE6", "#E9ECF2"]
var whiteBackground = ["#FFFFFF", "#E8F0FF", "#D2E2FF", "#FFFFFF"]
var blueBackground = [accentColor, "#227AFF", "#1B63FF", "#E9ECF2"]
var steadyBlueBorder = [accentColor, accentColor, accentColor, "#E9ECF2"]

var rpInfo = buttonTable(lightBackground, blueBackground, 0, accentColor)
var nrpInfo = buttonTable(lightBackground, blueBackground, 0, accentColor)
var nrpInfo_submit = buttonTable(whiteBackground, steadyBlueBorder, 1, accentColor)
var drpInfo = buttonTable(blueBackground, blueBackground, 0, "#FFFFFF")
var rplInfo = buttonTable(lightBackground, blueBackground, 0, accentColor)

// Links
var homePageUrl = "https://www.torvan.example"
var defaultLinkColor = "#037dff"

// `background` and `border` list the colours normal, hovered, pressed, disabled.
function buttonTable(background, border, borderWidth, text) {
    return {
        bgColor: {
            normal: background[0],
            hovered: background[1],
            pressed: background[2],
            disabled: background[3],
            opacity: { enabled: 1.0, disabled: 1.0 }
        },
        borderColor: {
            normal: border[0],
            hovered: border[1],
            pressed: border[2],
            disabled: border[3]
        },
        borderWidth: borderWidth,
        textColor: { enabled: text, disabled: "#B6B8BD" },
        bgRadius: 4
    }
}

function isGiven(value) {
    return value !== undefined && value !== null
}

function isAbsent(value) {
    return !isGiven(value) || value === ""
}

// The string under `key` of a map; the empty string if there is none.
function textOf(map, key) {
    var value = isAbsent(map) ? undefined : map[key]
    return isAbsent(value) ? "" : String(value)
}

// Calls action() once per press of Space, Return or Enter.
function activateByKey(event, action) {
    var activates = event.key === Qt.Key_Space || event.key === Qt.Key_Return
            || event.key === Qt.Key_Enter
    if (activates && !event.isAutoRepeat) {
        event.accepted = true
        action()
    }
}

// Sends one usage event whose attribute is JSON: `param` is an object, or its JSON text. The
// controller wraps text that is not JSON in an object.
function sendUserInfoEx(window, action, param, source) {
    uninstallMgr.sendUserInfo(window, action, isAbsent(param) ? "" : compactJson(param),
                              isAbsent(source) ? "" : source)
}

function compactJson(param) {
    if (typeof param !== "string") {
        return JSON.stringify(param)
    }
    var value
    try {
        value = JSON.parse(param)
    } catch (error) {
        return param
    }
    return JSON.stringify(value)
}

// Sends one usage event whose attribute is made of a list of { key, value } entries.
function sendUserInfo(window, action, list, source) {
    uninstallMgr.sendUserInfo(window, action, isAbsent(list) ? "" : makeJsonAttr(list),
                              isAbsent(source) ? "" : source)
}

// {"key":"value",...} of a list of { key, value } entries; nothing is escaped.
function makeJsonAttr(list) {
    if (isAbsent(list) || list.length === 0) {
        return ""
    }
    var entries = []
    for (var i = 0; i < list.length; ++i) {
        entries.push('"' + list[i].key + '":"' + list[i].value + '"')
    }
    return "{" + entries.join(",") + "}"
}

// Shows a message box and blocks until it is closed; returns -1. Fields of `info`, all optional:
// title, mainTitle, subTitle, buttons, icon, height. An empty icon hides it, an empty height is
// ignored. `defaultIdx` has no effect: the first button is always the default one.
function showMessageBox(info, parent) {
    var component = Qt.createComponent("qrc:/ZoMessageBox.qml")
    var box = component.createObject(parent ? parent : window, { visible: true })
    if (box === null) {
        console.warn("showMessageBox:", component.errorString())
        return -1
    }
    var fields = info ? info : {}
    var copied = ["title", "mainTitle", "subTitle", "icon"]
    for (var i = 0; i < copied.length; ++i) {
        if (isGiven(fields[copied[i]])) {
            box[copied[i]] = fields[copied[i]]
        }
    }
    if (!isAbsent(fields.height)) {
        box.height = fields.height
    }
    if (isGiven(fields.buttons)) {
        box.setButtons(fields.buttons)
    }
    return box.open()
}

// `text` as an underlined link. Without a `url` it leads to the home page, with an empty one to
// the text itself. The target stays unquoted.
function makeLink(text, url, linkColor) {
    var color = isAbsent(linkColor) ? defaultLinkColor : linkColor
    var target = isGiven(url) ? url : homePageUrl
    if (target === "") {
        target = text
    }
    return "<style>{text-decoration: underline;color:" + color + "} </style><a href=" + target + ">"
            + text + "</a>"
}

// `source` in a colour; font weight and font size only where given.
function makeColorFont(source, color, fw, fs) {
    var style = "color:" + color
    if (!isAbsent(fw)) {
        style += ";font-weight:" + fw
    }
    if (!isAbsent(fs)) {
        style += ";font-size:" + fs
    }
    return '<span style="' + style + '">' + source + "</span>"
}
