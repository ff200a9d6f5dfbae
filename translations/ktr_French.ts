<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Valable jusqu’au : %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Dites-nous pourquoi vous souhaitez désinstaller Dravik :</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Une remise exclusive pour vous :</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Ravis d’avoir résolu votre problème ! Voici un bon de réduction supplémentaire pour vous. Profitez-en !</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Nous aimerions savoir quel problème vous avez rencontré. Et nous avons un bon de réduction supplémentaire pour vous. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Merci pour votre avis ! Voici un bon de réduction supplémentaire pour vous. Profitez-en !</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Voir les prix réduits exclusifs</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Acheter d’autres produits à prix réduit</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Désinstallation…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Désinstallation terminée !</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Désinstaller</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Avertissement</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik est en cours d’exécution.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Veuillez fermer toutes ses fenêtres, puis réessayer.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Le prix est trop élevé</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Le produit a résolu mon problème</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Le produit ne résout pas mon problème</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>J’ai d’autres raisons</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Votre avis compte pour nous.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Envoyer</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
</TS>
