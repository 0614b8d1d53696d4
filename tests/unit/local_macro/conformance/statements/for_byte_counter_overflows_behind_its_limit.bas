' Next steps before it compares, so a Byte counter can't run through 255.
'! 6 Overflow
Sub main()
    Dim b As Byte
    For b = 254 To 255
    Next
End Sub
