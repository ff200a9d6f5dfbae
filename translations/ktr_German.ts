<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Gültig bis: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Bitte sagen Sie uns, warum Sie Dravik deinstallieren möchten:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Ein exklusiver Rabatt für Sie:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Schön, dass Ihr Problem gelöst ist! Wir haben noch einen Gutschein für Sie. Viel Freude damit!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Wir möchten gern wissen, welches Problem aufgetreten ist. Außerdem haben wir noch einen Gutschein für Sie. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Vielen Dank für Ihr Feedback! Wir haben noch einen Gutschein für Sie. Viel Freude damit!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Exklusive Rabattpreise ansehen</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Andere Produkte zum Rabattpreis kaufen</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Deinstallation läuft…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Deinstallation abgeschlossen!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Deinstallieren</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik wird gerade ausgeführt.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Bitte schließen Sie alle Fenster des Programms und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Der Preis ist zu hoch</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Das Produkt hat mein Problem gelöst</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Das Produkt löst mein Problem nicht</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Ich habe andere Gründe</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Ihre Meinung ist uns wichtig.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Senden</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
</TS>
