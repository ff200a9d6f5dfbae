<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fi" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Voimassa: %1 asti</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Kerro meille, miksi haluat poistaa Dravikin asennuksen:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Yksinoikeudella sinulle tarjottava alennus:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Hienoa, että ongelmasi ratkesi! Meillä on sinulle vielä yksi kuponki. Toivottavasti pidät siitä!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Haluaisimme tietää, millainen ongelma sinulla oli. Ja meillä on sinulle vielä yksi kuponki. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Kiitos palautteestasi! Meillä on sinulle vielä yksi kuponki. Toivottavasti pidät siitä!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Katso erikoishinnat</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Osta muita tuotteita alennuksella</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Poistetaan asennusta…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Asennuksen poisto on valmis!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Poista asennus</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Varoitus</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik on parhaillaan käynnissä.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Sulje kaikki sen ikkunat ja yritä uudelleen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Peruuta</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Hinta on liian korkea</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Tuote ratkaisi ongelmani</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Tuote ei ratkaise ongelmaani</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Minulla on muita syitä</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Mielipiteesi on meille tärkeä.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Lähetä</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Sulje</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Sulje</translation>
    </message>
</context>
</TS>
