import QtQuick.Controls 2.14
import QtQuick 2.14
import "public.js" as Public

// A coupon: its price, how long it is valid, and a line that invites to it. All of it is one link.
FocusScope {
    id: root

    property string discountPricesTxt: ""
    // An offer: "price", "expired" and "url", each shown or used as it stands; any may be absent.
    property var perferentialInfo: ({})

    function openOffer() {
        var url = Public.textOf(perferentialInfo, "url")
        Public.sendUserInfoEx("UninstallPop", "Click_Gift_Url", { "url": url })
        uninstallMgr.openLink(url)
    }

    Text {
        id: priceTxt
        objectName: "priceText"

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.topMargin: 10
        text: Public.textOf(root.perferentialInfo, "price")
        textFormat: Text.PlainText
        color: Public.pageTextColor
        font.pixelSize: 48
        font.weight: Font.Bold
    }

    Rectangle {
        id: expireRect
        objectName: "expiryBadge"

        anchors.left: parent.left
        anchors.top: priceTxt.bottom
        anchors.topMargin: 14
        width: expireTxt.width + 2 * 18
        height: 24
        radius: 12
        color: "#00000000"

        ZoGradientFill {
            anchors.fill: parent
            radius: expireRect.radius
            startColor: "#DFCDFF"
            endColor: "#C6D9FF"
        }

        Text {
            id: expireTxt
            objectName: "expiryText"

            anchors.centerIn: parent
            //: Small badge under the price of a coupon; %1 is the coupon's last day, such as
            //: 12/31/2026. One line, left of an image: about 30 letters and the date.
            text: qsTr("Validity period: %1").arg(Public.textOf(root.perferentialInfo, "expired"))
            textFormat: Text.PlainText
            color: "#4F545C"
            font.pixelSize: 14
        }
    }

    Text {
        id: invitation
        objectName: "offerText"

        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 11
        text: root.discountPricesTxt
        textFormat: Text.PlainText
        color: Public.accentColor
        font.pixelSize: 13
        font.underline: true

        ZoLinkFocusMark {
            anchors.fill: parent
            visible: offerArea.activeFocus
        }
    }

    Image {
        objectName: "couponImage"
        anchors.right: parent.right
        anchors.rightMargin: 48
        y: Math.round((frameRect.height - height) / 2)
        source: "qrc:/pic_gift.png"
        Accessible.ignored: true
    }

    MouseArea {
        id: offerArea
        objectName: "offerLink"

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: containsMouse ? Qt.PointingHandCursor : Qt.ArrowCursor
        onClicked: root.openOffer()

        activeFocusOnTab: true
        Accessible.role: Accessible.Link
        Accessible.name: root.discountPricesTxt
        Accessible.description: [priceTxt.text, expireTxt.text].join(" ").trim()
        Accessible.focusable: true
        Accessible.onPressAction: root.openOffer()
        Keys.onPressed: Public.activateByKey(event, root.openOffer)
    }
}
