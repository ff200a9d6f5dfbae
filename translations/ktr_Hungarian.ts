<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="hu" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Érvényes eddig: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Kérjük, mondja el, miért távolítja el a Dravik programot:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Exkluzív kedvezmény Önnek:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Örülünk, hogy megoldódott a problémája! Van egy további kuponunk az Ön számára. Reméljük, tetszeni fog!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Szeretnénk tudni, milyen problémát tapasztalt. És van egy további kuponunk az Ön számára. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Köszönjük a visszajelzését! Van egy további kuponunk az Ön számára. Reméljük, tetszeni fog!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Exkluzív kedvezményes árak</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Más termékek vásárlása kedvezményes áron</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Eltávolítás…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Az eltávolítás befejeződött!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Eltávolítás</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Figyelmeztetés</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>A Torvan Dravik jelenleg fut.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Zárja be az összes ablakát, majd próbálja újra.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Mégse</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Túl magas az ára</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>A termék megoldotta a problémámat</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>A termék nem oldja meg a problémámat</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Más okom van</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Fontos számunkra a véleménye.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Küldés</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Bezárás</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Bezárás</translation>
    </message>
</context>
</TS>
