' Resume belongs into a handler that an error has entered.
'! 20 Resume without error
Sub main()
    Resume
End Sub
