<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Valido fino al: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Ci dica perché desidera disinstallare Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Uno sconto esclusivo per lei:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Siamo lieti di aver risolto il suo problema! Abbiamo un altro buono per lei. Speriamo le piaccia!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Vorremmo sapere quale problema ha riscontrato. E abbiamo un altro buono per lei. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Grazie per il suo feedback! Abbiamo un altro buono per lei. Speriamo le piaccia!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Vedi i prezzi scontati esclusivi</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Acquista altri prodotti a prezzo scontato</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Disinstallazione in corso…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Disinstallazione completata!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Disinstalla</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avviso</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik è attualmente in esecuzione.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Chiuda tutte le sue finestre e riprovi.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Il prezzo è troppo alto</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Il prodotto ha risolto il mio problema</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Il prodotto non risolve il mio problema</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Ho altri motivi</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>La sua opinione è importante per noi.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Invia</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
</context>
</TS>
