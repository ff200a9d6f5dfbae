<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Geldig tot: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Vertel ons waarom u Dravik wilt verwijderen:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Een exclusieve korting voor u:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Fijn dat uw probleem is opgelost! We hebben nog een kortingsbon voor u. Veel plezier ermee!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>We horen graag welk probleem u hebt ondervonden. En we hebben nog een kortingsbon voor u. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Bedankt voor uw feedback! We hebben nog een kortingsbon voor u. Veel plezier ermee!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Exclusieve kortingsprijzen bekijken</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Andere producten met korting kopen</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Bezig met verwijderen…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Verwijderen voltooid!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Verwijderen</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Waarschuwing</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik wordt momenteel uitgevoerd.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Sluit alle vensters ervan en probeer het opnieuw.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>De prijs is te hoog</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Het product heeft mijn probleem opgelost</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Het product lost mijn probleem niet op</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Ik heb andere redenen</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Uw mening is belangrijk voor ons.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Verzenden</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
</context>
</TS>
