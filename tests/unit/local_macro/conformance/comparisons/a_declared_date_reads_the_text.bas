' A declared date against a text compares dates, not characters.
'> True True
Sub main()
    Dim d As Date
    d = #1/2/2020#
    Debug.Print (d = "January 2, 2020") & " " & (d < "10/1/2020")
End Sub
