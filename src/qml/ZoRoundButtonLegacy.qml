import QtQuick 2.14
import "."
import "public.js" as Public

// The push button with a label colour that a page can set.
ZoRoundButton {
    property color textColor: enabledOr(properties.textColor, "#000000")

    properties: Public.rplInfo
    labelColor: textColor
}
