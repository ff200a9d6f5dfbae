<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nb" sourcelanguage="en">
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
        <translation>Fortell oss hvorfor du vil avinstallere Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>En eksklusiv rabatt til deg:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Så fint at problemet ditt er løst! Vi har en ekstra kupong til deg. Vi håper du liker den!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Vi vil gjerne vite hvilket problem du har opplevd. Og vi har en ekstra kupong til deg. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Takk for tilbakemeldingen! Vi har en ekstra kupong til deg. Vi håper du liker den!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Se eksklusive rabattpriser</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Kjøp andre produkter med rabatt</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Avinstallerer…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Avinstalleringen er fullført!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Avinstaller</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advarsel</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik kjører for øyeblikket.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Lukk alle vinduene og prøv igjen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Prisen er for høy</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produktet har løst problemet mitt</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produktet løser ikke problemet mitt</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Jeg har andre grunner</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Din mening er viktig for oss.</translation>
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
        <translation>Lukk</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Lukk</translation>
    </message>
</context>
</TS>
