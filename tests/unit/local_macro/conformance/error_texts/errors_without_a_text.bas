' Numbers that mean nothing to the language are for applications; 0 is no error and has no text.
'> Application-defined or object-defined error
'> Application-defined or object-defined error
'> []
'> String
Sub main()
    Debug.Print Error(1)
    Debug.Print Error(1000)
    Debug.Print "[" & Error(0) & "]"
    Debug.Print TypeName(Error$(5))
End Sub
