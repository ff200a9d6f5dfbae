<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="cs" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Platí do: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Řekněte nám, proč chcete Dravik odinstalovat:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Exkluzivní sleva pro vás:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Jsme rádi, že se váš problém vyřešil! Máme pro vás ještě jeden kupón. Snad se vám bude líbit!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Rádi bychom věděli, s jakým problémem jste se setkali. A máme pro vás ještě jeden kupón. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Děkujeme za váš názor! Máme pro vás ještě jeden kupón. Snad se vám bude líbit!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Zobrazit exkluzivní zlevněné ceny</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Koupit další produkty se slevou</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Probíhá odinstalace…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Odinstalace dokončena!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Odinstalovat</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Upozornění</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Program Torvan Dravik je právě spuštěný.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Zavřete všechna jeho okna a zkuste to znovu.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Zrušit</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Cena je příliš vysoká</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produkt můj problém vyřešil</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produkt můj problém neřeší</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Mám jiné důvody</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Váš názor je pro nás důležitý.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Odeslat</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Zavřít</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Zavřít</translation>
    </message>
</context>
</TS>
