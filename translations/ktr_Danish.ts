<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="da" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Gyldig til: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Fortæl os, hvorfor du vil afinstallere Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>En eksklusiv rabat til dig:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Dejligt, at dit problem er løst! Vi har en ekstra kupon til dig. Vi håber, du kan lide den!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Vi vil gerne vide, hvilket problem du har oplevet. Og vi har en ekstra kupon til dig. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Tak for din feedback! Vi har en ekstra kupon til dig. Vi håber, du kan lide den!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Se eksklusive rabatpriser</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Køb andre produkter med rabat</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Afinstallerer…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Afinstallationen er fuldført!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Afinstaller</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advarsel</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik kører i øjeblikket.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Luk alle dets vinduer, og prøv igen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuller</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Prisen er for høj</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produktet har løst mit problem</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produktet løser ikke mit problem</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Jeg har andre grunde</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Din mening er vigtig for os.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Send</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Luk</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Luk</translation>
    </message>
</context>
</TS>
