import QtQuick 2.14
import "."
import "public.js" as Public

// The filled push button. Its table may have a gradient, which then replaces the plain fill.
ZoRoundButtonLegacy {
    id: root

    readonly property var tableGradient: properties.gradient

    // Transparent while the table has no gradient.
    function stopColor(position) {
        if (!tableGradient) {
            return "#00000000"
        }
        return enabledOr({ enabled: tableGradient.stops[position] }, "#00000000")
    }

    bgGradient: enabled && tableGradient ? twoStops : null

    // Replaces a table that a page declares: this button is always filled.
    Component.onCompleted: properties = Public.drpInfo

    Gradient {
        id: twoStops
        orientation: root.tableGradient && root.tableGradient.orientation !== undefined
                     ? root.tableGradient.orientation : Gradient.Horizontal
        GradientStop {
            position: 0
            color: root.stopColor(0)
        }
        GradientStop {
            position: 1
            color: root.stopColor(1)
        }
    }
}
