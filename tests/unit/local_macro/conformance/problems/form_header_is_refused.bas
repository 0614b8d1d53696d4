' A form or class module isn't a macro.
'? 3:1 A form or class header is not supported by this macro language
Begin
End
Sub main()
End Sub
