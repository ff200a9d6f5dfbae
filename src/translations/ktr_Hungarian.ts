<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hu" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <extracomment>Small badge under the price of a coupon; %1 is the coupon&apos;s last day, such as 12/31/2026. One line, left of an image: about 30 letters and the date.</extracomment>
        <translation>Érvényes eddig: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <extracomment>Heading over the list of reasons. Two lines of about 60 letters at most.</extracomment>
        <translation>Kérjük, mondja el, miért távolítja el a Dravik programot:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <extracomment>Heading over a coupon, after &quot;The price is too expensive&quot;. Two lines of about 60 letters.</extracomment>
        <translation>Exkluzív kedvezmény Önnek:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <extracomment>Heading over a coupon, after &quot;The product has solved my problem&quot;. Two lines of about 60 letters at most.</extracomment>
        <translation>Örülünk, hogy megoldódott a problémája! Van még egy kuponunk Önnek. Reméljük, tetszeni fog!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <extracomment>Heading over the box for feedback, after &quot;The product doesn&apos;t solve my problem&quot; and &quot;I have other reasons&quot;. Two lines of about 60 letters at most. Keep the space at the end.</extracomment>
        <translation>Szeretnénk tudni, milyen problémát tapasztalt. És van még egy kuponunk Önnek. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <extracomment>Heading over a coupon, after a feedback was submitted. Two lines of about 60 letters.</extracomment>
        <translation>Köszönjük a visszajelzését! Van még egy kuponunk Önnek. Reméljük, tetszeni fog!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <extracomment>Underlined line under a coupon; a click opens its page in the browser. One line, left of an image: about 50 letters.</extracomment>
        <translation>Exkluzív kedvezményes árak megtekintése</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <extracomment>Link under the box for feedback, and line under a coupon; a click opens the offer in the browser. One line, left of an image: about 50 letters.</extracomment>
        <translation>Más termékek vásárlása kedvezményes áron</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <extracomment>Line over the progress bar while the product is being removed. One line of about 80 letters.</extracomment>
        <translation>Eltávolítás…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <extracomment>The same line in green, once the product has been removed. One line of about 80 letters.</extracomment>
        <translation>Az eltávolítás befejeződött!</translation>
    </message>
    <message>
        <source>OK</source>
        <extracomment>Button that closes the window after the removal, and the one of the warning; the word that Windows has on such buttons.</extracomment>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <extracomment>Button that starts the removal. The button grows with the text: about 25 letters.</extracomment>
        <translation>Eltávolítás</translation>
    </message>
    <message>
        <source>Warning</source>
        <extracomment>Title of the message box that says the product is running. One line of about 60 letters.</extracomment>
        <translation>Figyelmeztetés</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <extracomment>First sentence of that message box: the product must not run while it is removed. &quot;Torvan Dravik&quot; is its name. Wraps at about 45 letters; both sentences have room for five lines together.</extracomment>
        <translation>A Torvan Dravik jelenleg fut.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <extracomment>Second sentence of that message box, on lines of its own: the user must close every window of the product. Wraps at about 45 letters; both sentences have room for five lines together.</extracomment>
        <translation>Zárja be a program összes ablakát, majd próbálja újra.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <extracomment>Button that closes the window and leaves the product installed; becomes &quot;OK&quot; later. The word that Windows has on such buttons; about 25 letters.</extracomment>
        <translation>Mégse</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <extracomment>Reason to choose from a list: the product costs too much. One line, left of an image: about 55 letters.</extracomment>
        <translation>Túl magas az ára</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <extracomment>Reason to choose from a list: the product is needed no longer. One line, left of an image: about 55 letters.</extracomment>
        <translation>A termék megoldotta a problémámat</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <extracomment>Reason to choose from a list: the product does not help. One line, left of an image: about 55 letters.</extracomment>
        <translation>A termék nem oldja meg a problémámat</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <extracomment>Reason to choose from a list, always the last one. One line, left of an image: about 55 letters.</extracomment>
        <translation>Más okom van</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <extracomment>In grey inside the empty box for feedback; gone once something is typed. The source says &quot;you&quot; for &quot;your&quot;. One line of about 80 letters.</extracomment>
        <translation>Fontos számunkra a véleménye.</translation>
    </message>
    <message>
        <source>Submit</source>
        <extracomment>Button inside the box for feedback: sends what was typed. The button grows with the text: about 20 letters.</extracomment>
        <translation>Küldés</translation>
    </message>
</context>
<context>
    <name>ZoCloseButton</name>
    <message>
        <source>Close</source>
        <extracomment>What a screen reader calls the cross in a title bar; nothing shows it.</extracomment>
        <translation>Bezárás</translation>
    </message>
</context>
</TS>
