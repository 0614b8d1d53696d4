' There are no Decimal variables: DefDec.
'? 3:1 DefDec is not supported by this macro language
DefDec D
Sub main()
End Sub
