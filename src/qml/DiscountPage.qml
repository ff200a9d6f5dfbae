import QtQuick 2.14

// A coupon page that is created when it is first shown, for a quicker start, or before the
// uninstallation (HomePage.qml); then it stays.
Loader {
    id: page

    property string discountPricesTxt: ""
    property var perferentialInfo: ({})

    active: visible
    source: "DiscountComponent.qml"
    onLoaded: {
        active = true // replaces the binding
        item.discountPricesTxt = Qt.binding(function() { return page.discountPricesTxt })
        item.perferentialInfo = Qt.binding(function() { return page.perferentialInfo })
    }
}
