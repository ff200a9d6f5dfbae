<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Ważne do: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Powiedz nam, dlaczego chcesz odinstalować Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Specjalny rabat dla Ciebie:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Cieszymy się, że problem został rozwiązany! Mamy dla Ciebie dodatkowy kupon. Mamy nadzieję, że Ci się spodoba!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Chcemy wiedzieć, jaki problem wystąpił. Mamy też dla Ciebie dodatkowy kupon. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Dziękujemy za opinię! Mamy dla Ciebie dodatkowy kupon. Mamy nadzieję, że Ci się spodoba!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Zobacz wyjątkowe ceny z rabatem</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Kup inne produkty w cenie z rabatem</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Odinstalowywanie…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Odinstalowano!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Odinstaluj</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Program Torvan Dravik jest obecnie uruchomiony.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Zamknij wszystkie jego okna i spróbuj ponownie.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Cena jest za wysoka</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produkt rozwiązał mój problem</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produkt nie rozwiązuje mojego problemu</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Mam inne powody</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Twoja opinia jest dla nas ważna.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Wyślij</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
</context>
</TS>
