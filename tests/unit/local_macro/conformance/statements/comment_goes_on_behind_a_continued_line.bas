' A comment that ends with a blank and an underscore goes on in the next line.
'> end
Sub main()
    ' This comment goes on _
    Debug.Print "no"
    Debug.Print "end"
End Sub
