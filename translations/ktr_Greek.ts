<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="el" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Ισχύει έως: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Πείτε μας γιατί θέλετε να απεγκαταστήσετε το Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Μια αποκλειστική έκπτωση για εσάς:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Χαιρόμαστε που λύθηκε το πρόβλημά σας! Έχουμε ένα επιπλέον κουπόνι για εσάς. Ελπίζουμε να σας αρέσει!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Θα θέλαμε να μάθουμε ποιο πρόβλημα αντιμετωπίσατε. Και έχουμε ένα επιπλέον κουπόνι για εσάς. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Ευχαριστούμε για τα σχόλιά σας! Έχουμε ένα επιπλέον κουπόνι για εσάς. Ελπίζουμε να σας αρέσει!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Δείτε τις αποκλειστικές τιμές</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Αγοράστε άλλα προϊόντα με έκπτωση</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Απεγκατάσταση…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Η απεγκατάσταση ολοκληρώθηκε!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Απεγκατάσταση</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Προειδοποίηση</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Το Torvan Dravik εκτελείται αυτή τη στιγμή.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Κλείστε όλα τα παράθυρά του και δοκιμάστε ξανά.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Άκυρο</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Η τιμή είναι πολύ υψηλή</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Το προϊόν έλυσε το πρόβλημά μου</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Το προϊόν δεν λύνει το πρόβλημά μου</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Έχω άλλους λόγους</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Η γνώμη σας είναι σημαντική για εμάς.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Υποβολή</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Κλείσιμο</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Κλείσιμο</translation>
    </message>
</context>
</TS>
