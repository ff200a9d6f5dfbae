<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ro" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Valabil până la: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Spuneți-ne de ce doriți să dezinstalați Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>O reducere exclusivă pentru dvs.:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Ne bucurăm că v-am rezolvat problema! Avem încă un cupon pentru dvs. Sperăm să vă placă!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Am dori să știm ce problemă ați întâmpinat. Și avem încă un cupon pentru dvs. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Vă mulțumim pentru opinie! Avem încă un cupon pentru dvs. Sperăm să vă placă!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Vedeți prețurile reduse exclusive</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Cumpărați alte produse la preț redus</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Se dezinstalează…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Dezinstalare finalizată!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Dezinstalare</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertisment</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik rulează în acest moment.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Închideți toate ferestrele sale și încercați din nou.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anulare</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Prețul este prea mare</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produsul mi-a rezolvat problema</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produsul nu îmi rezolvă problema</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Am alte motive</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Opinia dvs. este importantă pentru noi.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Trimiteți</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Închidere</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Închidere</translation>
    </message>
</context>
</TS>
