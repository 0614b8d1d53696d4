' Literals between placeholders stand between the digits, which are filled from the right.
'> (555) 123-4567
'> 12-34
'> 1-23
'> 00-07
Sub main()
    Debug.Print Format(5551234567#, "(000) 000-0000")
    Debug.Print Format(1234, "00-00")
    Debug.Print Format(123, "#-##")
    Debug.Print Format(7, "00-00")
End Sub
