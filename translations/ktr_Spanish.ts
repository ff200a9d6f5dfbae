<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Válido hasta: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Cuéntenos por qué desea desinstalar Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Un descuento exclusivo para usted:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>¡Nos alegra haber resuelto su problema! Tenemos un cupón adicional para usted. ¡Esperamos que le guste!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Nos gustaría saber qué problema ha tenido. Además, tenemos un cupón adicional para usted. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>¡Gracias por sus comentarios! Tenemos un cupón adicional para usted. ¡Esperamos que le guste!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Ver precios exclusivos con descuento</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Comprar otros productos con descuento</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Desinstalando…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>¡Desinstalación completada!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Desinstalar</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Advertencia</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>Torvan Dravik se está ejecutando en este momento.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Cierre todas sus ventanas y vuelva a intentarlo.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>ReasonComponent</name>
    <message>
        <source>The price is too expensive</source>
        <translation>El precio es demasiado alto</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>El producto ha resuelto mi problema</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>El producto no resuelve mi problema</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Tengo otros motivos</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Su opinión es importante para nosotros.</translation>
    </message>
    <message>
        <source>Submit</source>
        <translation>Enviar</translation>
    </message>
</context>
<context>
    <name>WinTitle</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
</TS>
