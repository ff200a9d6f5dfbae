<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>DiscountComponent</name>
    <message>
        <source>Validity period: %1</source>
        <translation>Válido até: %1</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Please tell us why you want to uninstall Dravik:</source>
        <translation>Diga-nos por que deseja desinstalar o Dravik:</translation>
    </message>
    <message>
        <source>Give you an exclusive discount:</source>
        <translation>Um desconto exclusivo para você:</translation>
    </message>
    <message>
        <source>Glad to solve your problem! We have an extra coupon for you. Hope you like it!</source>
        <translation>Que bom que resolvemos o seu problema! Temos um cupom extra para você. Esperamos que goste!</translation>
    </message>
    <message>
        <source>We&apos;d like to know what problem you&apos;ve been experiencing. And we have an extra coupon for you. </source>
        <translation>Gostaríamos de saber qual problema você teve. E temos um cupom extra para você. </translation>
    </message>
    <message>
        <source>Thanks for your feedback! We have an extra coupon for you. Hope you like it!</source>
        <translation>Obrigado pelo seu feedback! Temos um cupom extra para você. Esperamos que goste!</translation>
    </message>
    <message>
        <source>View exclusive discounted prices</source>
        <translation>Ver preços exclusivos com desconto</translation>
    </message>
    <message>
        <source>Enjoy discounted prices to buy other products</source>
        <translation>Comprar outros produtos com desconto</translation>
    </message>
    <message>
        <source>Unistalling…</source>
        <translation>Desinstalando…</translation>
    </message>
    <message>
        <source>Unistall complete!</source>
        <translation>Desinstalação concluída!</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Uninstall</source>
        <translation>Desinstalar</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Aviso</translation>
    </message>
    <message>
        <source>Uninstall has detected that Torvan Dravik is currently running.</source>
        <translation>O Torvan Dravik está em execução no momento.</translation>
    </message>
    <message>
        <source>Please close all instances and try again.</source>
        <translation>Feche todas as janelas dele e tente novamente.</translation>
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
        <translation>O preço é muito alto</translation>
    </message>
    <message>
        <source>The product has solved my problem</source>
        <translation>O produto resolveu o meu problema</translation>
    </message>
    <message>
        <source>The product doesn&apos;t solve my problem</source>
        <translation>O produto não resolve o meu problema</translation>
    </message>
    <message>
        <source>I have other reasons</source>
        <translation>Tenho outros motivos</translation>
    </message>
</context>
<context>
    <name>SubmitAdviceComponent</name>
    <message>
        <source>you voice is important to us.</source>
        <translation>Sua opinião é importante para nós.</translation>
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
        <translation>Fechar</translation>
    </message>
</context>
<context>
    <name>ZoPopTitle</name>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
</context>
</TS>
