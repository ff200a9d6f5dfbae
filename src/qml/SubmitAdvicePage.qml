import QtQuick 2.14

// A feedback page that is created when it is first shown, for a quicker start, or before the
// uninstallation (HomePage.qml); then it stays.
Loader {
    id: page

    property int currentPage: 3
    property string discountPricesTxt: ""

    signal sigSubmit(var text)

    active: visible
    source: "SubmitAdviceComponent.qml"
    onLoaded: {
        active = true // replaces the binding
        item.currentPage = page.currentPage
        item.discountPricesTxt = Qt.binding(function() { return page.discountPricesTxt })
        item.sigSubmit.connect(page.sigSubmit)
    }
}
