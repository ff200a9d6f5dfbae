<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="id" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Berlaku hingga: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Beri tahu kami alasan Anda ingin menghapus Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Diskon eksklusif untuk Anda:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Senang masalah Anda teratasi! Kami punya kupon tambahan untuk Anda. Semoga Anda suka!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Kami ingin tahu masalah apa yang Anda alami. Dan kami punya kupon tambahan untuk Anda. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Terima kasih atas masukan Anda! Kami punya kupon tambahan untuk Anda. Semoga Anda suka!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Lihat harga diskon eksklusif</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Beli produk lain dengan harga diskon</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Menghapus instalan…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Penghapusan selesai!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Hapus instalan</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Peringatan</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik sedang berjalan.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Tutup semua jendelanya, lalu coba lagi.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Batal</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>Harganya terlalu mahal</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>Produk sudah menyelesaikan masalah saya</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>Produk tidak menyelesaikan masalah saya</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Saya punya alasan lain</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Pendapat Anda penting bagi kami.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Kirim</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Tutup</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Tutup</translation>
    </message>
</context>
</TS>
