' Mid takes one character after the other, and joining builds the text anew.
'> olleh 5
Sub main()
    For i = Len("hello") To 1 Step -1
        turned = turned & Mid("hello", i, 1)
    Next
    Debug.Print turned & " " & Len(turned)
End Sub
