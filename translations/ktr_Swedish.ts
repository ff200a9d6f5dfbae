<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Giltig till: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Berätta varför du vill avinstallera Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>En exklusiv rabatt till dig:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Vad roligt att ditt problem är löst! Vi har en extra kupong till dig. Hoppas att du gillar den!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Vi vill gärna veta vilket problem du har stött på. Och vi har en extra kupong till dig. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Tack för din feedback! Vi har en extra kupong till dig. Hoppas att du gillar den!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Visa exklusiva rabattpriser</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Köp andra produkter till rabatterat pris</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Avinstallerar…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Avinstallationen är klar!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Avinstallera</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Varning</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik körs just nu.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Stäng alla dess fönster och försök igen.</translation>
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
        <translation>Priset är för högt</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produkten har löst mitt problem</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produkten löser inte mitt problem</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Jag har andra skäl</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Din åsikt är viktig för oss.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Skicka</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Stäng</translation>
    </message>
</context>
</TS>
